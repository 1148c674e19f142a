#pragma once

#include <string>
#include <string_view>

namespace dialwright {

/// Gives an existing file (the target itself, no link) new bytes as FileStoreWin32 tells. Throws
/// RuntimeFailure.
void ReplaceWithBytes(const std::wstring& path, std::string_view bytes);

/// Makes a file with its bytes in one step; what stands at the path by then is replaced.
void MakeWithBytes(const std::wstring& path, std::string_view bytes);

}  // namespace dialwright
