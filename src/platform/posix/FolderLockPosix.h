#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "platform/FileStore.h"

namespace dialwright {

/// Locks a host folder by the folder itself, so that nothing has to be made in it, and holds off
/// SIGTERM and SIGHUP.
std::unique_ptr<FolderLock> LockFolder(const std::string& hostFolder,
                                       std::chrono::milliseconds patience);

/// Removes the temporary files that processes of this user have left in a host folder, if they run
/// no longer.
void RemoveLeftovers(const std::string& hostFolder);

}  // namespace dialwright
