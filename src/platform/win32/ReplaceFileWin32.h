#pragma once

#include <string>
#include <string_view>

namespace dialwright {

/// What the names of temporary files begin with; the number of their process and a hyphen follow.
inline const std::wstring siblingStart = L".dialwright-";

/// Gives an existing file (the target itself, no link) new bytes as FileStoreWin32 tells. Throws
/// RuntimeFailure.
void ReplaceWithBytes(const std::wstring& path, std::string_view bytes);

/// Makes a file with its bytes in one step; what stands at the path by then is replaced.
void MakeWithBytes(const std::wstring& path, std::string_view bytes);

}  // namespace dialwright
