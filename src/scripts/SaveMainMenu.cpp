#include <string>

#include "keymap/Catalogue.h"
#include "scripts/KeyMapSave.h"
#include "scripts/SectionWriter.h"
#include "scripts/modCommon.h"
#include "shell/frmMain.h"
#include "validation/DerivedKeyLists.h"
#include "validation/SaveRules.h"

namespace dialwright {

namespace {

constexpr MenuSection mainMenu{mainMenuGrid, "Main Menu"};

}  // namespace

bool SaveMainMenuKeyInfo(frmMain& form, bool bCreateKeyDocument, bool second) {
  const KeyGrid& grid = At(form.gridKeyMap, mainMenu.grid);
  const MenuRows rows = RowsOf(grid);
  if (RefusedBySave(form, mainMenu.grid, rows)) return false;

  SectionWriter writer(form, mainMenu, form.strMainMenuScript, bCreateKeyDocument, second);
  for (int row = 1; row < grid.Rows(); ++row) {
    const RowToSave values = writer.Row(row);
    if (FindAction(MainMenuActions(), values.token) == nullptr) continue;
    writer.Write(values.token, values.keyValue);
    writer.Write("ORDINAL_" + values.token, values.orderValue);
  }

  // With several slots the lists are blanked, so that a file that held them no longer does.
  const bool single = form.bSingleKeyMap != false16;
  const std::string keys = KeyList(rows);
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
