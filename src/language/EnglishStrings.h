#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace dialwright {

/// One text of the program's own table, in UTF-8.
struct EnglishStringRow {
  int number;
  std::string_view text;
};

/// The English text of a number; nothing for a number that the table does not hold.
std::optional<std::string_view> EnglishString(int number);

/// The whole table, in ascending order of the numbers.
std::span<const EnglishStringRow> EnglishStrings();

}  // namespace dialwright
