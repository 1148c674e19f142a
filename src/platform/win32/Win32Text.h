#pragma once

#include <string>
#include <string_view>

namespace dialwright {

/// UTF-8 and the system's wide characters. What is not valid becomes U+FFFD.
std::wstring WideText(std::string_view utf8);
std::string NarrowText(std::wstring_view wide);

/// A path for the file calls: whole, and with the prefix that frees a long one of the old limit.
/// Throws RuntimeFailure for a path that no file can have.
std::wstring WidePath(std::string_view path);

}  // namespace dialwright
