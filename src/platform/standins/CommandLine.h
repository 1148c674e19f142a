#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace dialwright {

/// The program and the arguments of a command line, by the system's rules: blanks and tabs separate
/// them, quotation marks hold together, and of backslashes before a quotation mark every two give
/// one and an odd one makes the mark a character. Two marks within quotation marks are one mark. In
/// the program's name a backslash is always a backslash.
std::vector<std::string> SplitCommandLine(std::string_view commandLine);

}  // namespace dialwright
