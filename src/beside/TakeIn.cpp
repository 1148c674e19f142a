#include "beside/TakeIn.h"

#include <algorithm>

#include "beside/History.h"
#include "scripts/SetupOptions.h"

namespace dialwright {

std::vector<SkippedAction> TakeIn(History& history, const frmMain& form, const KeyMap& map,
                                  const std::string& name) {
  std::vector<SkippedAction> skipped;
  WholeMap whole = history.Map();
  for (int grid = 0; grid < gridCount; ++grid)
    At(whole.rows, grid) =
        TakenIn(std::move(At(whole.rows, grid)), grid, At(map.menus, grid), skipped);
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
