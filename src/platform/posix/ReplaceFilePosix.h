#pragma once

#include <string>
#include <string_view>

namespace dialwright {

/// What the names of temporary files begin with; the number of their process and a hyphen follow.
inline constexpr std::string_view siblingStart = ".dialwright-";

/// Gives an existing file (the target itself, no link) new bytes as FileStorePosix tells. Throws
/// RuntimeFailure.
void ReplaceFile(const std::string& hostPath, std::string_view bytes);

/// Makes a file with its bytes in one step; what stands at the path by then is replaced. It has no
/// more readers than the model, another file; its owner may always write it.
void MakeFile(const std::string& hostPath, std::string_view bytes, const std::string& model);

}  // namespace dialwright
