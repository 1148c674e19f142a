#include "validation/MenuRows.h"

#include "controls/KeyGrid.h"
#include "text/Text.h"

namespace dialwright {

MenuRows RowsOf(const KeyGrid& grid) {
  MenuRows rows;
  rows.reserve(static_cast<std::size_t>(grid.Rows()));
  for (int row = 1; row < grid.Rows(); ++row)
    rows.push_back({row, grid.Text(row, Column::Action),
                    std::string(Trim(grid.Text(row, Column::KeyAssignment))),
                    grid.Text(row, Column::ActionToken),
                    std::string(Trim(grid.Text(row, Column::Order)))});
  return rows;
}

std::string KeyList(const MenuRows& rows) {
  std::string list;
  for (const MenuRow& row : rows) list.append(row.key).append(",");
  return list;
}

bool IsSameKey(std::string_view a, std::string_view b) {
  return !a.empty() && EqualsIgnoringCase(a, b);
}

}  // namespace dialwright
