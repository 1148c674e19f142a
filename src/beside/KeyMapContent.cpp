#include "beside/KeyMapContent.h"

#include <algorithm>

#include "scripts/KeyMapSave.h"
#include "scripts/SetupOptions.h"

namespace dialwright {

namespace {

const KeyMapRow* FindRow(const KeyMapMenu& menu, const std::string& action) {
  const auto found = std::ranges::find(menu, action, &KeyMapRow::action);
  return found == menu.end() ? nullptr : &*found;
}

std::optional<bool> IsChecked(const KeyMap& map, std::string_view box) {
  if (!map.setup) return std::nullopt;
  const auto found = std::ranges::find(*map.setup, box, &KeyMapBox::name);
  return found == map.setup->end() ? std::nullopt : std::optional(found->checked);
}

}  // namespace

Content ContentOf(const KeyMap& map, const KeyMap& other) {
  Content content;
  for (int grid = 0; grid < gridCount; ++grid)
    for (const KeyMapRow& row : At(map.menus, grid)) {
      const KeyMapRow* theirs = FindRow(At(other.menus, grid), row.action);
      const auto key = row.key || theirs == nullptr ? row.key : theirs->key;
      const auto voiced = row.voiced || theirs == nullptr ? row.voiced : theirs->voiced;
      At(content.menus, grid)
          .push_back({row.action, key.value_or(""),
                      voiced.value_or(false) && !IsSavedAsNotVoiced(row.action)});
    }
  if (map.setup || other.setup)
    for (const SetupOption& option : SetupOptions())
      content.setup.push_back(
          IsChecked(map, option.name).value_or(IsChecked(other, option.name).value_or(false)));
  return content;
}

}  // namespace dialwright
