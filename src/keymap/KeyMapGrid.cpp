#include "keymap/KeyMapGrid.h"

#include <string>

#include "shell/frmMain.h"
#include "text/Number.h"
#include "text/Text.h"

namespace dialwright {

namespace {

bool IsVoicedMenu(int grid) {
  return grid == mainMenuGrid || grid == afterMessageGrid || grid == globalsGrid;
}

void Renumber(KeyGrid& grid) {
  int number = orderStep;
  for (int row = 1; row < grid.Rows(); ++row) {
    if (grid.Text(row, Column::Order) == notVoiced) continue;
    grid.SetText(row, Column::Order, std::to_string(number));
    number += orderStep;
  }
}

}  // namespace

void AddKeyToGrid(frmMain& form, int grid, std::string_view key, std::string_view order,
                  std::string_view label, std::string_view token) {
  const std::string_view place = Trim(order);
  if ((!place.empty() && !IsNumeric(place)) || grid < 0 || grid >= gridCount) return;
  KeyGrid& keys = At(form.gridKeyMap, grid);
  keys.AddItem(label);
  const int row = keys.Rows() - 1;
  keys.SetText(row, Column::KeyAssignment, Trim(key));
  keys.SetText(row, Column::Order, place);
  keys.SetText(row, Column::ActionToken, token);
}

void SortGrid(frmMain& form, int Index) {
  if (!IsVoicedMenu(Index)) return;
  KeyGrid& grid = At(form.gridKeyMap, Index);
  grid.SetRedraw(Redraw::none);
  if (!grid.HasRowInHand()) grid.SetRow(1);
  if (grid.HasRowInHand()) {
    const std::string selected = grid.Text(grid.Row(), Column::ActionToken);
    Renumber(grid);
    grid.SortGeneric(Column::Order);
    grid.Refresh();
    for (int row = 1; row < grid.Rows(); ++row) {
      if (!EqualsIgnoringCase(grid.Text(row, Column::ActionToken), selected)) continue;
      grid.SetRow(row);
      break;
    }
  }
  grid.SetRedraw(Redraw::buffered);
}

void BeginFilling(frmMain& form, int Index) {
  At(form.gridKeyMap, Index).SetRedraw(Redraw::none);
  At(form.gridKeyMap, Index).CutToHeading();
}

void EndFilling(frmMain& form, int Index) {
  KeyGrid& grid = At(form.gridKeyMap, Index);
  if (IsVoicedMenu(Index)) {
    grid.SortGeneric(Column::Order);
    grid.Refresh();
    SortGrid(form, Index);
  }
  grid.SetRow(1);
  grid.SetRedraw(Redraw::buffered);
}

}  // namespace dialwright
