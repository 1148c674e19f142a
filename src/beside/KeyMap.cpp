#include "beside/KeyMap.h"

#include <algorithm>
#include <map>

#include "beside/EffectiveRows.h"
#include "keymap/KeyMapGrid.h"
#include "keymap/RowEditing.h"
#include "scripts/SetupOptions.h"
#include "shell/Program.h"
#include "text/Text.h"

namespace dialwright {

namespace {

using Rows = std::vector<KeyGrid::Cells>;

bool IsVoiced(const KeyGrid::Cells& row) { return Cell(row, Column::Order) != notVoiced; }

/// Takes a row's voice from the file; an action that is never voiced and is silent stays so.
void TakeVoice(KeyGrid::Cells& row, bool voiced) {
  const bool stays = !IsVoiced(row) && IsNeverVoiced(Cell(row, Column::ActionToken));
  Cell(row, Column::Order) = voiced && !stays ? "" : notVoiced;
}

/// The rows in the order in which the menu is announced: those that the file voices by their places
/// in it, then the other voiced ones, then the silent ones.
Rows InOrder(Rows rows, const std::map<std::string_view, std::size_t>& places) {
  const auto place = [&](const KeyGrid::Cells& row) {
    if (!IsVoiced(row)) return places.size() + 1;
    const auto found = places.find(Cell(row, Column::ActionToken));
    return found == places.end() ? places.size() : found->second;
  };
  std::ranges::stable_sort(rows, {}, place);
  return rows;
}

}  // namespace

Rows TakenIn(Rows rows, int grid, const KeyMapMenu& menu, std::vector<SkippedAction>& skipped) {
  std::map<std::string_view, std::size_t> places;
  for (const KeyMapRow& taken : menu) {
    const auto row = std::ranges::find_if(rows, [&](const KeyGrid::Cells& cells) {
      return Cell(cells, Column::ActionToken) == taken.action;
    });
    if (row == rows.end()) {
      skipped.push_back({grid, taken.action});
      continue;
    }
    if (taken.key) Cell(*row, Column::KeyAssignment) = Trim(*taken.key);
    if (!Announces(grid) || !taken.voiced) continue;
    TakeVoice(*row, *taken.voiced);
    if (*taken.voiced) places.emplace(taken.action, places.size());
  }
  return Announces(grid) && !menu.empty() ? InOrder(std::move(rows), places) : rows;
}

KeyMap KeyMapOf(const frmMain& form) {
  KeyMap map;
  map.edition = EditionName(form);
  map.server = form.program.server.currentVersion.strVersion;
  map.slot = SelectedSlot(form);
  for (int grid = 0; grid < gridCount; ++grid)
    for (const MenuRow& row : EffectiveRows(form, grid)) {
      At(map.menus, grid).push_back({row.token, row.key, {}});
      if (Announces(grid)) At(map.menus, grid).back().voiced = row.order != notVoiced;
    }
  if (!form.SSTab1.TabVisible(setupTab)) return map;
  map.setup.emplace();
  for (const SetupOption& option : SetupOptions())
    map.setup->push_back({std::string(option.name), (form.*option.box).Value() == 1});
  return map;
}

std::string_view EditionName(const frmMain& form) {
  return form.program.server.currentVersion.bIsTessel != false16 ? "Tessel" : "Merid";
}

}  // namespace dialwright
