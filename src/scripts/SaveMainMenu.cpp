#include <string>

#include "keymap/Catalogue.h"
#include "scripts/KeyMapSave.h"
#include "scripts/SectionWriter.h"
#include "scripts/modCommon.h"
#include "shell/Program.h"
#include "shell/frmMain.h"
#include "text/Text.h"
#include "validation/DerivedKeyLists.h"
#include "validation/KeyConflicts.h"

namespace dialwright {

namespace {

constexpr MenuSection mainMenu{0, "Main Menu", 1031, true};

/// "99999" has five characters: any shorter order is that of a voiced action.
constexpr std::size_t notVoicedLength = 5;

bool IsVoicedWithoutKey(const KeyGrid& grid, int row) {
  return Trim(grid.Text(row, Column::KeyAssignment)).empty() &&
         Trim(grid.Text(row, Column::Order)).size() < notVoicedLength;
}

std::string LocatorKey(const KeyGrid& grid) {
  std::string key;
  for (int row = 1; row < grid.Rows(); ++row)
    if (EqualsIgnoringCase(Trim(grid.Text(row, Column::ActionToken)), "MENU_MSG_LOCATOR"))
      key = Trim(grid.Text(row, Column::KeyAssignment));
  return key;
}

bool Refused(frmMain& form, const KeyGrid& grid) {
  Program& program = form.program;
  for (int row = 1; row < grid.Rows(); ++row) {
    if (IsVoicedWithoutKey(grid, row)) {
      program.MsgBox(program.mymyLoadString(1064));
      return true;
    }
    if (RefusedAsDuplicate(form, mainMenu, row)) return true;
  }
  if (!bKeyConflicts(KeyList(grid), {LocatorKey(grid)})) return false;
  program.MsgBox(program.mymyLoadString(1147));
  return true;
}

}  // namespace

bool SaveMainMenuKeyInfo(frmMain& form, bool bCreateKeyDocument, bool second) {
  const KeyGrid& grid = At(form.gridKeyMap, mainMenu.grid);
  if (Refused(form, grid)) return false;

  SectionWriter writer(form, mainMenu, form.strMainMenuScript, bCreateKeyDocument, second);
  for (int row = 1; row < grid.Rows(); ++row) {
    const RowToSave values = writer.Row(row);
    if (FindAction(MainMenuActions(), values.token) == nullptr) continue;
    writer.Write(values.token, values.keyValue);
    writer.Write("ORDINAL_" + values.token, values.orderValue);
  }

  // With several slots the lists are blanked, so that a file that held them no longer does.
  const bool single = form.bSingleKeyMap != false16;
  const std::string keys = KeyList(grid);
  const std::string inactive = strGetInactiveKeys(keys);
  const auto derived = [single](const std::string& list) {
    return BlankAndQuoted(single ? list : std::string());
  };
  writer.Write("MENU_INACTIVE_KEYS", derived(inactive));
  writer.Write("MENU_SHORTCUT_IGNORE_KEYS", derived(inactive + std::string(extendedKeys)));
  writer.Write("MENU_EXTENDED_DOUBLE_TT_KEYS", derived(strGetExtendedDoubleKeys(keys)));
  writer.Finish();
  return true;
}

}  // namespace dialwright
