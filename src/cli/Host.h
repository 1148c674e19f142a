#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Clock.h"
#include "platform/FileStore.h"
#include "platform/Languages.h"
#include "platform/Registry.h"

namespace dialwright {

/// One server and the machine that it is looked at from.
struct Host {
  std::unique_ptr<FileStore> files;
  std::unique_ptr<Registry> registry;
  std::unique_ptr<Clock> clock;
  std::unique_ptr<Languages> languages;
  std::string programFolder;  ///< a path of the system
};

/// The server in a folder of the host, or this machine's own: of its registry on Windows, elsewhere
/// of the folder that this program lies in. Throws CommandFailure where there is none.
Host OpenHost(const std::optional<std::string>& serverFolder);

/// The program's arguments in UTF-8, without its name.
std::vector<std::string> HostArguments(int argc, char** argv);

/// Prepares the standard output for bytes as they are; returns whether a person reads it who may be
/// shown colours.
bool PrepareOutput();

}  // namespace dialwright
