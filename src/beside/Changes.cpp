#include "beside/Changes.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

#include "beside/Announced.h"
#include "keymap/KeyMapGrid.h"
#include "keymap/RowEditing.h"
#include "text/Text.h"

namespace dialwright {

namespace {

const std::string& Cell(const PooledRow& row, Column column) {
  return *row[static_cast<std::size_t>(column)];
}

CountedRow Counted(const PooledRow& row, int grid) {
  const std::string& token = Cell(row, Column::ActionToken);
  return {token, Cell(row, Column::KeyAssignment),
          IsAnnounced(grid, token, Cell(row, Column::Order))};
}

using RowsByToken = std::unordered_map<std::string_view, const CountedRow*>;

RowsByToken ByToken(const std::vector<CountedRow>& rows) {
  RowsByToken result;
  for (const CountedRow& row : rows) result.emplace(row.token, &row);
  return result;
}

/// The tokens whose order counts: those that are there in both, where it says its actions only if
/// they are voiced in both.
std::vector<std::string_view> OrderThatCounts(const std::vector<CountedRow>& rows,
                                              const RowsByToken& others, int grid) {
  std::vector<std::string_view> tokens;
  for (const CountedRow& row : rows) {
    const auto other = others.find(row.token);
    if (other == others.end()) continue;
    if (!AnnouncesActions(grid) || (row.voiced && other->second->voiced))
      tokens.push_back(row.token);
  }
  return tokens;
}

void AddRowChanges(std::vector<Change>& changes, int grid, const CountedRow& before,
                   const CountedRow& now) {
  if (before.key != now.key)
    changes.push_back({Change::Kind::key, grid, now.token, before.key, now.key, 0});
  if (before.voiced != now.voiced)
    changes.push_back(
        {now.voiced ? Change::Kind::voiced : Change::Kind::silent, grid, now.token, {}, {}, 0});
}

void AddMenuChanges(std::vector<Change>& changes, int grid, const std::vector<CountedRow>& before,
                    const std::vector<CountedRow>& now) {
  const RowsByToken then = ByToken(before);
  const RowsByToken present = ByToken(now);
  for (const CountedRow& row : now) {
    const auto found = then.find(row.token);
    AddRowChanges(changes, grid,
                  found == then.end() ? CountedRow{row.token, {}, false} : *found->second, row);
  }
  for (const CountedRow& row : before)
    if (!present.contains(row.token))
      AddRowChanges(changes, grid, row, CountedRow{row.token, {}, false});
  if (OrderThatCounts(before, present, grid) != OrderThatCounts(now, then, grid))
    changes.push_back({Change::Kind::order, grid, {}, {}, {}, 0});
}

}  // namespace

Content ContentOf(const Snapshot& snapshot, TypedText typed) {
  Content content;
  for (int grid = 0; grid < gridCount; ++grid) {
    std::vector<CountedRow>& rows = At(content.menus, grid);
    if (!At(snapshot.rows, grid)) continue;
    for (const PooledRow& row : *At(snapshot.rows, grid)) rows.push_back(Counted(row, grid));
    const EditState& edit = At(snapshot.edits, grid);
    const int current = At(snapshot.current, grid);
    if (typed == TypedText::ignored || !edit.typed || current == 0 || !IsKeyText(*edit.key))
      continue;
    CountedRow& inHand = rows[static_cast<std::size_t>(current - 1)];
    inHand.key = Trim(*edit.key);
    if (inHand.key.empty()) inHand.voiced = false;
  }
  if (snapshot.hasSetup)
    for (const BoxState& box : snapshot.boxes) content.setup.push_back(box.checked);
  return content;
}

bool IsSame(const Content& a, const Content& b) { return ChangesBetween(a, b).empty(); }

std::vector<Change> ChangesBetween(const Content& before, const Content& now) {
  std::vector<Change> changes;
  for (int grid = 0; grid < gridCount; ++grid)
    if (At(before.menus, grid) != At(now.menus, grid))
      AddMenuChanges(changes, grid, At(before.menus, grid), At(now.menus, grid));
  for (std::size_t i = 0; i < std::min(before.setup.size(), now.setup.size()); ++i)
    if (before.setup[i] != now.setup[i])
      changes.push_back(
          {Change::Kind::box, -1, {}, before.setup[i] ? "1" : "0", now.setup[i] ? "1" : "0", i});
  return changes;
}

CountedRow RowOf(const Content& content, int grid, std::string_view token) {
  const auto& rows = At(content.menus, grid);
  const auto found = std::ranges::find(rows, token, &CountedRow::token);
  return found == rows.end() ? CountedRow{std::string(token), {}, false} : *found;
}

}  // namespace dialwright
