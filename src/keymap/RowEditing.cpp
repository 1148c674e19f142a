#include "keymap/RowEditing.h"

#include <cmath>
#include <optional>
#include <string>

#include "keymap/Catalogue.h"
#include "keymap/KeyMapGrid.h"
#include "shell/Program.h"
#include "shell/frmMain.h"
#include "text/Number.h"
#include "text/Text.h"

namespace dialwright {

namespace {

/// What an order cell holds between a cleared check box and the sort that numbers the row.
constexpr std::string_view newlyVoiced = "999";

constexpr int shortKey = 1;
constexpr int singleMapKey = 2;
constexpr int severalMapsKey = 3;

bool HasAction(const KeyGrid& grid, int row) {
  return row > 0 && row < grid.Rows() && !Trim(grid.Text(row, Column::Action)).empty();
}

void ApplyKeyLengthLimit(frmMain& form, int Index, std::string_view token) {
  At(form.txtKeyAssignment, Index).MaxLength = KeyLengthLimit(token, form.bSingleKeyMap != false16);
}

void MoveRow(frmMain& form, int Index, int step) {
  form.cmdSave.Enabled = true;
  KeyGrid& grid = At(form.gridKeyMap, Index);
  const int row = grid.Row();
  const int place = row + step;
  if (row < 1 || place < 1 || place >= grid.Rows()) return;
  grid.MoveRow(row, place);
  grid.SetRow(place);
  SortGrid(form, Index);
}

}  // namespace

int KeyLengthLimit(std::string_view token, bool singleKeyMap) {
  const auto has = [token](std::string_view part) { return ContainsIgnoringCase(token, part); };
  if (has("_PAUSE")) return shortKey;
  if (!singleKeyMap) return severalMapsKey;
  return has("_SLOWDOWN") || has("_SPEEDUP") || has("_VOLUME") ? shortKey : singleMapKey;
}

bool IsNeverVoiced(std::string_view token) {
  return ContainsIgnoringCase(token, "_GOTO_") || EqualsIgnoringCase(token, "MENU_REPEAT");
}

bool MyIsNumber(std::string_view text, double minimum, double maximum) {
  if (text.empty()) return true;
  const std::optional<double> value = NumericValue(text);
  if (!value || text.find('.') != std::string_view::npos) return false;
  if (Val(text) != std::abs(std::trunc(*value))) return false;
  return (minimum == 0 || *value >= minimum) && (maximum == 0 || *value <= maximum);
}

bool IsKeyText(std::string_view text) {
  return MyIsNumber(ReplaceAll(Trim(ReplaceAll(text, "*", "")), "#", ""));
}

void gridKeyMap_BeforeRowColChange(frmMain& form, int Index, int, int, int NewRow, int, bool&) {
  const KeyGrid& grid = At(form.gridKeyMap, Index);
  if (HasAction(grid, NewRow))
    ApplyKeyLengthLimit(form, Index, grid.Text(NewRow, Column::ActionToken));
}

void gridKeyMap_AfterRowColChange(frmMain& form, int Index, int, int, int NewRow, int) {
  if (Index < 0) return;
  const KeyGrid& grid = At(form.gridKeyMap, Index);
  if (grid.Rows() < 2 || !HasAction(grid, NewRow)) return;
  EditBox& box = At(form.txtKeyAssignment, Index);
  CheckBox& dontVoice = At(form.chkDontVoiceAction, Index);
  SpinButton& order = At(form.UpDownMenuOrder, Index);

  box.SetText(Trim(grid.Text(NewRow, Column::KeyAssignment)));
  const std::string token = grid.Text(NewRow, Column::ActionToken);
  At(form.txtDescription, Index).Caption = std::string(Trim(FetchDescription(form.program, token)));
  const bool canBeVoiced = !IsNeverVoiced(token);
  if (!canBeVoiced) dontVoice.SetValue(1);
  dontVoice.Enabled = canBeVoiced;
  order.Enabled = canBeVoiced;
  ApplyKeyLengthLimit(form, Index, token);

  // The check box above may have sorted the grid: the row is where the grid has it now.
  const bool voiced = grid.Text(grid.Row(), Column::Order) != notVoiced;
  dontVoice.SetValue(voiced ? 0 : 1);
  order.Enabled = voiced;

  if (box.Visible && box.Enabled) {
    form.focus.Give(box);
    box.SelectAll();
  }
}

void txtKeyAssignment_KeyPress(frmMain& form) { form.cmdSave.Enabled = true; }

void txtKeyAssignment_LostFocus(frmMain& form, int Index) {
  bool dropped = false;
  if (form.cmdSave.Enabled) txtKeyAssignment_Validate(form, Index, dropped);
}

void txtKeyAssignment_Validate(frmMain& form, int Index, bool& Cancel) {
  const std::string text = At(form.txtKeyAssignment, Index).Text();
  if (!IsKeyText(text)) {
    form.program.MsgBox(form.program.mymyLoadString(1077));
    Cancel = true;
    form.SSTab1.SetTab(Index);
    return;
  }
  KeyGrid& grid = At(form.gridKeyMap, Index);
  const std::string_view key = Trim(text);
  if (grid.HasRowInHand()) grid.SetText(grid.Row(), Column::KeyAssignment, key);
  if (key.empty()) At(form.chkDontVoiceAction, Index).SetValue(1);
}

void chkDontVoiceAction_Click(frmMain& form, int Index) {
  form.cmdSave.Enabled = true;
  KeyGrid& grid = At(form.gridKeyMap, Index);
  const bool voiced = At(form.chkDontVoiceAction, Index).Value() != 1;
  At(form.UpDownMenuOrder, Index).Enabled = voiced;
  if (grid.HasRowInHand()) {
    if (!voiced)
      grid.SetText(grid.Row(), Column::Order, notVoiced);
    else if (grid.Text(grid.Row(), Column::Order) == notVoiced)
      grid.SetText(grid.Row(), Column::Order, newlyVoiced);
  }
  SortGrid(form, Index);
}

void UpDownMenuOrder_DownClick(frmMain& form, int Index) { MoveRow(form, Index, +1); }

void UpDownMenuOrder_UpClick(frmMain& form, int Index) { MoveRow(form, Index, -1); }

}  // namespace dialwright
