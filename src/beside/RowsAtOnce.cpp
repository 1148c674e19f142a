#include "beside/RowsAtOnce.h"

#include <algorithm>
#include <utility>

#include "beside/Announced.h"
#include "keymap/KeyMapGrid.h"
#include "scripts/SetupOptions.h"
#include "text/Text.h"

namespace dialwright {

namespace {

bool IsSilent(const KeyGrid::Cells& row) { return Cell(row, Column::Order) == notVoiced; }

/// The edit controls as a choice of the row would leave them.
void ShowRowInHand(frmMain& form, int grid) {
  const KeyGrid& keys = At(form.gridKeyMap, grid);
  if (!keys.HasRowInHand()) return;
  EditBox& box = At(form.txtKeyAssignment, grid);
  box.SetText(Trim(keys.Text(keys.Row(), Column::KeyAssignment)));
  box.SelectAll();
  const bool voiced = keys.Text(keys.Row(), Column::Order) != notVoiced;
  At(form.chkDontVoiceAction, grid).PutBack(voiced ? 0 : 1);
  At(form.UpDownMenuOrder, grid).Enabled = voiced;
}

/// Puts the rows in place, the voiced ones numbered anew, with the same action in hand.
void PutRows(frmMain& form, int grid, std::vector<KeyGrid::Cells> rows) {
  KeyGrid& keys = At(form.gridKeyMap, grid);
  const std::string token =
      keys.HasRowInHand() ? keys.Text(keys.Row(), Column::ActionToken) : std::string();
  int number = 0;
  int inHand = 0;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (AnnouncesActions(grid) && !IsSilent(rows[i]))
      Cell(rows[i], Column::Order) = std::to_string(number += orderStep);
    if (Cell(rows[i], Column::ActionToken) == token) inHand = static_cast<int>(i) + 1;
  }
  keys.PutBack(std::move(rows), inHand);
}

}  // namespace

void RevertRow(frmMain& form, int grid, const CountedRow& before) {
  const KeyGrid& keys = At(form.gridKeyMap, grid);
  std::vector<KeyGrid::Cells> rows(keys.DataRows().begin(), keys.DataRows().end());
  const auto row = std::ranges::find_if(rows, [&before](KeyGrid::Cells& cells) {
    return Cell(cells, Column::ActionToken) == before.token;
  });
  if (row == rows.end()) return;
  Cell(*row, Column::KeyAssignment) = before.key;
  if (IsAnnounced(grid, before.token, Cell(*row, Column::Order)) != before.voiced) {
    KeyGrid::Cells moved = std::move(*row);
    rows.erase(row);
    Cell(moved, Column::Order) = before.voiced ? std::string() : std::string(notVoiced);
    rows.insert(std::ranges::find_if(rows, IsSilent), std::move(moved));
  }
  PutRows(form, grid, std::move(rows));
  if (keys.HasRowInHand() && keys.Text(keys.Row(), Column::ActionToken) == before.token)
    ShowRowInHand(form, grid);
}

void ReplaceRows(frmMain& form, int grid, std::vector<KeyGrid::Cells> rows) {
  PutRows(form, grid, std::move(rows));
  ShowRowInHand(form, grid);
}

void ReplaceSetup(frmMain& form, const std::array<bool, setupOptionCount>& checked) {
  for (std::size_t i = 0; i < checked.size(); ++i)
    (form.*SetupOptions()[i].box).PutBack(checked.at(i) ? 1 : 0);
  EnableMessageOptions(form);
}

}  // namespace dialwright
