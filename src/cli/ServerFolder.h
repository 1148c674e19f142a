#pragma once

#include <memory>
#include <string>

#include "platform/FileStore.h"
#include "platform/Registry.h"

namespace dialwright {

/// The absolute path of a folder of the host, without a slash at its end.
std::string AbsoluteFolder(const std::string& folder);

/// The registry in a server folder's server.reg; `files` know the folder as `systemPath`. Throws
/// CommandFailure without one that can be read.
std::unique_ptr<Registry> RegistryIn(const std::string& folder, FileStore& files,
                                     const std::string& systemPath);

}  // namespace dialwright
