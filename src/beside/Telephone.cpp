#include "beside/Telephone.h"

#include "text/Text.h"

namespace dialwright {

bool IsLongerKey(std::string_view key, std::string_view start) {
  return key.size() > start.size() && StartsWithIgnoringCase(key, start);
}

Reached Reach(const MenuRows& rows, std::string_view pressed) {
  Reached reached;
  for (const MenuRow& row : rows) {
    if (IsSameKey(row.key, pressed))
      reached.exact.push_back(&row);
    else if (IsLongerKey(row.key, pressed))
      reached.longer.push_back(&row);
  }
  return reached;
}

std::vector<int> RowNumbers(const std::vector<const MenuRow*>& rows) {
  std::vector<int> numbers;
  for (const MenuRow* row : rows) numbers.push_back(row->row);
  return numbers;
}

}  // namespace dialwright
