#include "keymap/Catalogue.h"
#include "scripts/KeyMapSave.h"
#include "scripts/SectionWriter.h"
#include "shell/frmMain.h"
#include "validation/KeyConflicts.h"

namespace dialwright {

namespace {

constexpr MenuSection globals{5, "Globals", 1231, false};

}  // namespace

bool SaveGlobalsKeyInfo(frmMain& form, bool bCreateKeyDocument, bool second) {
  const KeyGrid& grid = At(form.gridKeyMap, globals.grid);
  for (int row = 1; row < grid.Rows(); ++row)
    if (RefusedAsDuplicate(form, globals, row)) return false;

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
