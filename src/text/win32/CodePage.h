#pragma once

#include <string>
#include <string_view>

namespace dialwright {

/// Conversions by the system's table of a code page. What it cannot hold becomes its own sign for
/// that.
std::string CodePageToUtf8(unsigned codePage, std::string_view bytes);
std::string Utf8ToCodePage(unsigned codePage, std::string_view utf8);

}  // namespace dialwright
