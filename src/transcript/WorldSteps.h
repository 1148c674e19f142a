#pragma once

#include <string>
#include <vector>

#include "World.h"

namespace dialwright {

using Words = std::vector<std::string>;

/// The steps that make a transcript's world. The words begin with the step's name; a step that
/// cannot be understood or done throws TranscriptError.
void SetServer(World& world, const Words& words);
void SetRegistryValue(World& world, const Words& words);
void MakeFile(World& world, const Words& words, const std::vector<std::string>& lines);
void CopyProjectFile(World& world, const Words& words);
void RemovePath(World& world, const Words& words);
void MakeLibrary(World& world, const Words& words, const std::vector<std::string>& lines);
void SetLocale(World& world, const Words& words);
void SetClock(World& world, const Words& words);
void SetComponent(World& world, const Words& words);
void AddAnswers(World& world, const Words& words);

/// The steps that look at its files.
void ShowFile(World& world, const Words& words);
void ShowMacros(World& world, const Words& words);
void ShowFolder(World& world, const Words& words);

}  // namespace dialwright
