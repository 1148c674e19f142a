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
  std::string programFolder;  ///< a path of the system
  std::string shippedFolder;  ///< what is shipped, if it does not lie there yet; else empty
};

/// The server in a folder of the host, or this machine's own: of its registry on Windows, elsewhere
/// of the folder that this program lies in. What the program leaves in a server's folder is made
/// only for one that `writes`. Throws CommandFailure where there is no server.
Host OpenHost(const std::optional<std::string>& serverFolder, bool writes);

/// The language libraries of this machine's user, out of these files where the system does not
/// read them itself.
std::unique_ptr<Languages> MakeLanguages(FileStore& files);

/// The program's arguments in UTF-8, without its name.
std::vector<std::string> HostArguments(int argc, char** argv);

/// Prepares the standard output for bytes as they are; returns whether a person reads it who may be
/// shown colours.
bool PrepareOutput();

}  // namespace dialwright
