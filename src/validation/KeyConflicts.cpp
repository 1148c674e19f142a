#include "validation/KeyConflicts.h"

#include <algorithm>

#include "shell/Program.h"
#include "shell/frmMain.h"
#include "text/Text.h"

namespace dialwright {

namespace {

std::string_view KeyOf(const KeyGrid& grid, int row) {
  return Trim(grid.Text(row, Column::KeyAssignment));
}

}  // namespace

bool bKeyConflicts(std::string_view keyList, const ConflictKeys& keys) {
  for (const std::string_view element : SplitAtCommas(keyList)) {
    const std::string_view key = Trim(element);
    if (CharacterCount(key) != 2) continue;
    const std::string_view first = FirstCharacters(key, 1);
    if (std::ranges::any_of(keys, [first](const std::string& conflict) {
          return EqualsIgnoringCase(first, conflict);
        }))
      return true;
  }
  return false;
}

std::string KeyList(const KeyGrid& grid) {
  std::string list;
  for (int row = 1; row < grid.Rows(); ++row) list.append(KeyOf(grid, row)).append(",");
  return list;
}

bool RefusedAsDuplicate(frmMain& form, const MenuSection& section, int row) {
  const KeyGrid& grid = At(form.gridKeyMap, section.grid);
  const std::string key(KeyOf(grid, row));
  if (key.empty()) return false;
  int bearers = 0;
  for (int other = 1; other < grid.Rows(); ++other)
    if (EqualsIgnoringCase(KeyOf(grid, other), key)) ++bearers;
  if (bearers < 2) return false;

  form.program.MsgBox(form.program.mymyLoadString(section.duplicateMessage) + key);
  form.SSTab1.SetTab(section.grid);
  if (section.countsErrors) ++form.iKeyMapErrorCount;
  return true;
}

}  // namespace dialwright
