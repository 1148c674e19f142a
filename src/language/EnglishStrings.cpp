#include "language/EnglishStrings.h"

#include <algorithm>
#include <functional>

namespace dialwright {
namespace {

#define ENTRY(number, text) {number, text},
// The rows ascend.
// clang-format off
constexpr EnglishStringRow kRows[] = {
#include "language/FormStrings.inc"
#include "language/BesideStrings.inc"
};
// clang-format on
#undef ENTRY

static_assert(std::ranges::adjacent_find(kRows, std::ranges::greater_equal{},
                                         &EnglishStringRow::number) == std::ranges::end(kRows),
              "the look-up is a binary search");

}  // namespace

std::optional<std::string_view> EnglishString(int number) {
  const auto* row = std::ranges::lower_bound(kRows, number, {}, &EnglishStringRow::number);
  if (row == std::ranges::end(kRows) || row->number != number) return std::nullopt;
  return row->text;
}

std::span<const EnglishStringRow> EnglishStrings() { return kRows; }

}  // namespace dialwright
