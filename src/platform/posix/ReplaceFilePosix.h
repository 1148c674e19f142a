#pragma once

#include <string>
#include <string_view>

namespace dialwright {

/// Gives an existing file (the target itself, no link) new bytes as FileStorePosix tells. Throws
/// RuntimeFailure.
void ReplaceFile(const std::string& hostPath, std::string_view bytes);

/// Makes a file with its bytes in one step; what stands at the path by then is replaced.
/// The process's mask is taken off the permissions.
void MakeFile(const std::string& hostPath, std::string_view bytes, unsigned permissions);

}  // namespace dialwright
