#include "beside/EffectiveRows.h"

#include "beside/Announced.h"
#include "keymap/KeyMapGrid.h"
#include "keymap/RowEditing.h"
#include "text/Text.h"

namespace dialwright {

int GridOfBoxInHand(const frmMain& form) {
  for (int grid = 0; grid < gridCount; ++grid)
    if (form.focus.ActiveControl() == &At(form.txtKeyAssignment, grid)) return grid;
  return -1;
}

MenuRows EffectiveRows(const frmMain& form, int grid) {
  const KeyGrid& keys = At(form.gridKeyMap, grid);
  MenuRows rows = RowsOf(keys);
  if (GridOfBoxInHand(form) != grid || !keys.HasRowInHand()) return rows;
  const std::string& text = At(form.txtKeyAssignment, grid).Text();
  if (!IsKeyText(text)) return rows;
  MenuRow& row = rows[static_cast<std::size_t>(keys.Row() - 1)];
  row.key = Trim(text);
  if (row.key.empty()) row.order = notVoiced;
  return rows;
}

EffectiveGrids EffectiveGridsOf(const frmMain& form) {
  EffectiveGrids grids;
  for (int grid = 0; grid < gridCount; ++grid) At(grids, grid) = EffectiveRows(form, grid);
  return grids;
}

bool IsVoiced(int grid, const MenuRow& row) { return IsAnnounced(grid, row.token, row.order); }

}  // namespace dialwright
