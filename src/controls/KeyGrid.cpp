#include "controls/KeyGrid.h"

#include <algorithm>
#include <optional>

#include "platform/Failure.h"
#include "text/Number.h"

namespace dialwright {

namespace {

/// The column that selections and events speak of: the key, the one that can be edited.
constexpr int keyColumn = static_cast<int>(Column::KeyAssignment);

struct SortKey {
  int group;
  double number;
};

SortKey sortKey(const std::string& text) {
  if (const std::optional<double> number = NumericValue(text)) return {0, *number};
  return {text.empty() ? 1 : 2, 0};
}

}  // namespace

const KeyGrid::Cells& KeyGrid::row(int number) const {
  if (number < 0 || number >= Rows()) throw RuntimeFailure(Failure::subscriptOutOfRange);
  return rows[static_cast<std::size_t>(number)];
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

const std::string& KeyGrid::Text(int number, Column column) const {
  return row(number)[static_cast<std::size_t>(column)];
}

void KeyGrid::SetText(int number, Column column, std::string_view text) {
  row(number);
  rows[static_cast<std::size_t>(number)][static_cast<std::size_t>(column)] = text;
  Notify();
}

void KeyGrid::SetRow(int next) {
  if (next < 1 || next >= Rows() || next == current) return;
  const int previous = current;
  bool cancel = false;
  if (BeforeRowColChange) BeforeRowColChange(previous, keyColumn, next, keyColumn, cancel);
  if (cancel) return;
  current = next;
  Notify();
  if (AfterRowColChange) AfterRowColChange(previous, keyColumn, next, keyColumn);
}

void KeyGrid::MoveRow(int from, int place) {
  if (from < 1 || from >= Rows() || place < 1 || place >= Rows()) return;
  const auto first = rows.begin() + std::min(from, place);
  const auto last = rows.begin() + std::max(from, place) + 1;
  std::rotate(first, from < place ? first + 1 : last - 1, last);
  Notify();
}

void KeyGrid::SortGeneric(Column column) {
  const auto index = static_cast<std::size_t>(column);
  std::stable_sort(rows.begin() + 1, rows.end(), [index](const Cells& a, const Cells& b) {
    const SortKey left = sortKey(a[index]);
    const SortKey right = sortKey(b[index]);
    return left.group != right.group ? left.group < right.group : left.number < right.number;
  });
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
