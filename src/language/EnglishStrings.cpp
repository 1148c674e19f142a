#include "language/EnglishStrings.h"

#include <algorithm>
#include <functional>

namespace dialwright {
namespace {

#define ENTRY(number, text) {number, text},
// The rows ascend.
// clang-format off
constexpr EnglishStringRow rows[] = {
#include "language/FormStrings.inc"
#include "language/BesideStrings.inc"
};
// clang-format on
#undef ENTRY

static_assert(std::ranges::adjacent_find(rows, std::ranges::greater_equal{},
                                         &EnglishStringRow::number) == std::ranges::end(rows),
              "the look-up is a binary search");

}  // namespace

std::optional<std::string_view> EnglishString(int number) {
  const auto* row = std::ranges::lower_bound(rows, number, {}, &EnglishStringRow::number);
  if (row == std::ranges::end(rows) || row->number != number) return std::nullopt;
  return row->text;
}

std::span<const EnglishStringRow> EnglishStrings() { return rows; }

}  // namespace dialwright
