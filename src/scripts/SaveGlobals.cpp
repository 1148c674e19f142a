#include "keymap/Catalogue.h"
#include "scripts/KeyMapSave.h"
#include "scripts/SectionWriter.h"
#include "shell/frmMain.h"
#include "validation/SaveRules.h"

namespace dialwright {

namespace {

constexpr MenuSection globals{globalsGrid, "Globals"};

}  // namespace

bool SaveGlobalsKeyInfo(frmMain& form, bool bCreateKeyDocument, bool second) {
  const KeyGrid& grid = At(form.gridKeyMap, globals.grid);
  if (RefusedBySave(form, globals.grid, RowsOf(grid))) return false;

  SectionWriter writer(form, globals, form.strMainMenuScript, bCreateKeyDocument, second);
  for (int row = 1; row < grid.Rows(); ++row) {
    const RowToSave values = writer.Row(row);
    if (FindAction(GlobalActions(), values.token) != nullptr)
      writer.Write(values.token, values.keyValue);
  }
  writer.Finish();
  return true;
}

}  // namespace dialwright
