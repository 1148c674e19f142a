#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace dialwright {

class KeyGrid;

/// One row of a menu, as the rules about keys see it.
struct MenuRow {
  int row = 0;  ///< its number in the grid
  std::string label;
  std::string key;  ///< trimmed; empty for an action without a key
  std::string token;
  std::string order;  ///< trimmed
};

/// The rows of a menu in the order of its grid.
using MenuRows = std::vector<MenuRow>;
MenuRows RowsOf(const KeyGrid& grid);

/// The keys of a menu in row order, each followed by a comma.
std::string KeyList(const MenuRows& rows);

/// Whether two keys are one and the same to the telephone. An action without a key shares it with
/// none.
bool IsSameKey(std::string_view a, std::string_view b);

}  // namespace dialwright
