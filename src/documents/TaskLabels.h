#pragma once

#include <string_view>

namespace dialwright {

class Program;

/// What the key map documents call an action, in English in every language. A token, in upper case,
/// that the list does not know is called an error.
std::string_view TaskLabel(const Program& program, std::string_view token);
/// Whether the list knows it.
bool HasTaskLabel(std::string_view token);

}  // namespace dialwright
