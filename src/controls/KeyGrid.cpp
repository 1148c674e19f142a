#include "controls/KeyGrid.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "platform/Failure.h"
#include "text/Number.h"

namespace dialwright {

namespace {

/// The column that selections and events speak of: the key, the one that can be edited.
constexpr int keyColumn = static_cast<int>(Column::KeyAssignment);

/// The group that a text belongs to, and its place there.
using SortKey = std::pair<int, double>;

SortKey SortKeyOf(const std::string& text) {
  if (const std::optional<double> number = NumericValue(text)) return {0, *number};
  return {text.empty() ? 1 : 2, 0};
}

}  // namespace

const KeyGrid::Cells& KeyGrid::RowCells(int row) const {
  if (row < 0 || row >= Rows()) throw RuntimeFailure(Failure::subscriptOutOfRange);
  return rows[static_cast<std::size_t>(row)];
}

void KeyGrid::CutToHeading() {
  rows.resize(1);
  current = 0;
  Notify();
}

void KeyGrid::AddItem(std::string_view first) {
  rows.emplace_back();
  rows.back()[0] = first;
  Notify();
}

const std::string& KeyGrid::Text(int row, Column column) const {
  return Cell(RowCells(row), column);
}

void KeyGrid::SetText(int row, Column column, std::string_view text) {
  RowCells(row);
  Cell(rows[static_cast<std::size_t>(row)], column) = text;
  Notify();
}

void KeyGrid::SetRow(int row) {
  if (row < 1 || row >= Rows() || row == current) return;
  const int previous = current;
  bool cancel = false;
  if (BeforeRowColChange) BeforeRowColChange(previous, keyColumn, row, keyColumn, cancel);
  if (cancel) return;
  current = row;
  Notify();
  if (AfterRowColChange) AfterRowColChange(previous, keyColumn, row, keyColumn);
}

void KeyGrid::PutBack(std::vector<Cells> dataRows, int row) {
  dataRows.insert(dataRows.begin(), rows.front());
  rows = std::move(dataRows);
  current = row > 0 && row < Rows() ? row : 0;
  Notify();
}

void KeyGrid::MoveRow(int row, int place) {
  if (row < 1 || row >= Rows() || place < 1 || place >= Rows()) return;
  const auto first = rows.begin() + std::min(row, place);
  const auto last = rows.begin() + std::max(row, place) + 1;
  std::rotate(first, row < place ? first + 1 : last - 1, last);
  Notify();
}

void KeyGrid::SortGeneric(Column column) {
  std::vector<std::pair<SortKey, std::size_t>> order;
  order.reserve(rows.size());
  for (std::size_t row = 1; row < rows.size(); ++row)
    order.emplace_back(SortKeyOf(Cell(rows[row], column)), row);
  std::ranges::sort(order);
  std::vector<Cells> sorted;
  sorted.reserve(rows.size());
  sorted.push_back(std::move(rows.front()));
  for (const auto& [key, row] : order) sorted.push_back(std::move(rows[row]));
  rows = std::move(sorted);
  Notify();
}

void KeyGrid::SetRedraw(Redraw mode) {
  redraw = mode;
  Notify();
}

void KeyGrid::Refresh() {
  if (changed) changed();
}

void KeyGrid::Notify() {
  if (redraw != Redraw::none) Refresh();
}

}  // namespace dialwright
