#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "platform/FileStore.h"

namespace dialwright {

/// Locks a folder by a mutex of the machine that is named for it, so that nothing has to be made in
/// it.
std::unique_ptr<FolderLock> LockFolder(const std::wstring& folder,
                                       std::chrono::milliseconds patience);

/// Removes the temporary files that processes have left in a folder, if they run no longer.
void RemoveLeftovers(const std::wstring& folder);

}  // namespace dialwright
