#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "validation/MenuRows.h"

namespace dialwright {

/// The keys of a telephone, as they lie on it from left to right and from top to bottom.
inline constexpr std::string_view telephoneKeys = "123456789*0#";

/// Whether a key begins with another one, or with what has been pressed so far, and goes on.
bool IsLongerKey(std::string_view key, std::string_view start);

/// The rows that pressing some keys leads to, each in the order of the grid.
struct Reached {
  std::vector<const MenuRow*> exact;   ///< these keys are their whole key
  std::vector<const MenuRow*> longer;  ///< their keys begin with these
  bool Empty() const { return exact.empty() && longer.empty(); }
};
Reached Reach(const MenuRows& rows, std::string_view pressed);

/// Their numbers in the grid.
std::vector<int> RowNumbers(const std::vector<const MenuRow*>& rows);

}  // namespace dialwright
