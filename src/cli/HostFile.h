#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace dialwright {

/// A path of the host in UTF-8 as the standard library knows it.
std::filesystem::path HostFilePath(std::string_view utf8);
std::string Utf8Path(const std::filesystem::path& path);

/// The bytes of a file of the host, at most one more than `most`. Throws CommandFailure.
std::string ReadHostFile(const std::string& path, std::size_t most);

/// Gives a file of the host these bytes; one that is there keeps its old ones if that fails. Throws
/// CommandFailure.
void WriteHostFile(const std::string& path, std::string_view bytes);

}  // namespace dialwright
