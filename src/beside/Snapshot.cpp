#include "beside/Snapshot.h"

#include "scripts/SetupOptions.h"

namespace dialwright {

namespace {

std::shared_ptr<const PooledRows> RowsOf(const KeyGrid& grid, TextPool& pool,
                                         const std::shared_ptr<const PooledRows>& last) {
  PooledRows rows;
  rows.reserve(grid.DataRows().size());
  const auto same = [&](std::size_t row, std::size_t column, const std::string& text) {
    return last && row < last->size() && *(*last)[row][column] == text;
  };
  for (const KeyGrid::Cells& cells : grid.DataRows()) {
    PooledRow& row = rows.emplace_back();
    for (std::size_t column = 0; column < cells.size(); ++column)
      row.at(column) = same(rows.size() - 1, column, cells.at(column))
                           ? (*last)[rows.size() - 1].at(column)
                           : pool.Keep(cells.at(column));
  }
  return last && rows == *last ? last : std::make_shared<const PooledRows>(std::move(rows));
}

EditState EditOf(const frmMain& form, int grid, TextPool& pool) {
  const EditBox& box = At(form.txtKeyAssignment, grid);
  const CheckBox& dontVoice = At(form.chkDontVoiceAction, grid);
  return {pool.Keep(box.Text()),
          pool.Keep(At(form.txtDescription, grid).Caption()),
          static_cast<int>(box.SelStart),
          static_cast<int>(box.SelLength),
          box.MaxLength(),
          box.Typed(),
          dontVoice.Value() != 0,
          dontVoice.Enabled(),
          At(form.UpDownMenuOrder, grid).Enabled()};
}

void PutBackGrid(frmMain& form, int grid, const Snapshot& snapshot) {
  std::vector<KeyGrid::Cells> rows;
  for (const PooledRow& pooled : *At(snapshot.rows, grid))
    rows.push_back({*pooled[0], *pooled[1], *pooled[2], *pooled[3]});
  At(form.gridKeyMap, grid).PutBack(std::move(rows), At(snapshot.current, grid));

  const EditState& edit = At(snapshot.edits, grid);
  EditBox& box = At(form.txtKeyAssignment, grid);
  CheckBox& dontVoice = At(form.chkDontVoiceAction, grid);
  box.MaxLength = edit.maxLength;
  box.PutBack(*edit.key, static_cast<std::size_t>(edit.selStart),
              static_cast<std::size_t>(edit.selLength), edit.typed);
  At(form.txtDescription, grid).Caption = *edit.description;
  dontVoice.PutBack(edit.dontVoice ? 1 : 0);
  dontVoice.Enabled = edit.dontVoiceEnabled;
  At(form.UpDownMenuOrder, grid).Enabled = edit.orderEnabled;
}

}  // namespace

Snapshot TakeSnapshot(const frmMain& form, TextPool& pool, const Snapshot& last) {
  Snapshot now;
  for (int grid = 0; grid < gridCount; ++grid) {
    At(now.rows, grid) = RowsOf(At(form.gridKeyMap, grid), pool, At(last.rows, grid));
    At(now.current, grid) = At(form.gridKeyMap, grid).Row();
    At(now.edits, grid) = EditOf(form, grid, pool);
  }
  for (std::size_t i = 0; i < now.boxes.size(); ++i) {
    const CheckBox& box = form.*SetupOptions()[i].box;
    now.boxes.at(i) = {box.Value() != 0, box.Enabled()};
  }
  now.tab = form.SSTab1.Tab();
  now.hasSetup = form.SSTab1.TabVisible(setupTab);
  return now;
}

void PutBack(frmMain& form, const Snapshot& snapshot) {
  form.SSTab1.PutBack(snapshot.tab);
  for (int grid = 0; grid < gridCount; ++grid) PutBackGrid(form, grid, snapshot);
  for (std::size_t i = 0; i < snapshot.boxes.size(); ++i) {
    CheckBox& box = form.*SetupOptions()[i].box;
    box.PutBack(snapshot.boxes.at(i).checked ? 1 : 0);
    box.Enabled = snapshot.boxes.at(i).enabled;
  }
}

}  // namespace dialwright
