#pragma once

#include <span>
#include <string_view>

#include "keymap/Catalogue.h"

namespace dialwright {

/// A row of a stock conversation, in the order in which it is added to its grid.
struct PresetRow {
  std::string_view name;  ///< the token; for message playback what stands behind the prefix
  std::string_view key;
  std::string_view order = {};
  Gate gate = {};
  int label = 0;  ///< string number in place of the catalogue's label, from `gotoForAllMessages` on
};

std::span<const PresetRow> StandardMainMenu();
std::span<const PresetRow> AlternateSMainMenu();
std::span<const PresetRow> AlternateXMainMenu();
std::span<const PresetRow> StandardPlayback();
std::span<const PresetRow> StandardAfterMessage();

}  // namespace dialwright
