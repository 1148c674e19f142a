#include "beside/TakeIn.h"

#include <algorithm>

#include "beside/History.h"
#include "keymap/Catalogue.h"
#include "keymap/KeyMapGrid.h"
#include "platform/Failure.h"
#include "scripts/SetupOptions.h"
#include "shell/Program.h"

namespace dialwright {

namespace {

/// Whether a load would bring the action; where that cannot be found out it does.
bool IsLoaded(Program& program, const Action& action) {
  try {
    return ExistsOn(program.server, action);
  } catch (const RuntimeFailure&) {
    return true;
  }
}

/// Adds the rows that the menu names and the server has, but that a stock conversation has dropped:
/// silent and without a key, as what no longer stands there counts.
void AddDropped(Program& program, int grid, const KeyMapMenu& menu,
                std::vector<KeyGrid::Cells>& rows) {
  constexpr auto token = static_cast<std::size_t>(Column::ActionToken);
  for (const KeyMapRow& taken : menu) {
    const Action* action = FindAction(grid, taken.action);
    const bool isThere = std::ranges::any_of(
        rows, [&](const KeyGrid::Cells& cells) { return cells[token] == taken.action; });
    if (action == nullptr || isThere || !IsLoaded(program, *action)) continue;
    KeyGrid::Cells& row = rows.emplace_back();
    row[static_cast<std::size_t>(Column::Action)] = ActionLabel(program, *action);
    row[static_cast<std::size_t>(Column::Order)] = Announces(grid) ? notVoiced : "";
    row[token] = taken.action;
  }
}

}  // namespace

std::vector<SkippedAction> TakeIn(History& history, const frmMain& form, const KeyMap& map,
                                  const std::string& name) {
  std::vector<SkippedAction> skipped;
  WholeMap whole = history.Map();
  for (int grid = 0; grid < gridCount; ++grid) {
    AddDropped(form.program, grid, At(map.menus, grid), At(whole.rows, grid));
    At(whole.rows, grid) =
        TakenIn(std::move(At(whole.rows, grid)), grid, At(map.menus, grid), skipped);
  }
  if (map.setup && form.SSTab1.TabVisible(setupTab))
    for (const KeyMapBox& box : *map.setup) {
      const auto option = std::ranges::find(SetupOptions(), box.name, &SetupOption::name);
      if (option != SetupOptions().end())
        whole.setup.at(static_cast<std::size_t>(option - SetupOptions().begin())) = box.checked;
    }
  history.Replace(whole, name);
  return skipped;
}

}  // namespace dialwright
