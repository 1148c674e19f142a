#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "controls/Control.h"

namespace dialwright {

/// The columns of a key map grid, in their places.
enum class Column { Action, KeyAssignment, ActionToken, Order };
inline constexpr int columnCount = 4;

/// How a grid draws: not at all, or buffered.
enum class Redraw { none = 0, buffered = 2 };

/// A grid of text cells: row 0 is the heading, data rows count from 1. One row is the current one;
/// 0 means that no row is in hand.
class KeyGrid : public Control {
 public:
  using Cells = std::array<std::string, columnCount>;

  /// The number of rows, the heading included.
  int Rows() const { return static_cast<int>(rows.size()); }
  /// Cuts the grid down to its heading: row 0 is current then, and no handler runs.
  void CutToHeading();
  /// Adds a row at the end with the text in its first cell.
  void AddItem(std::string_view first);

  /// Cells of a row that is there; others throw RuntimeFailure 9.
  const std::string& Text(int row, Column column) const;
  void SetText(int row, Column column, std::string_view text);

  int Row() const { return current; }
  /// Makes a data row current; runs the handlers if it is another row than the current one. A row
  /// that is not there changes nothing.
  void SetRow(int row);
  bool HasRowInHand() const { return current > 0; }

  /// The data rows, in order.
  std::span<const Cells> DataRows() const { return std::span(rows).subspan(1); }
  /// Replaces all data rows and the current row at once; no handler runs. A row that is not there
  /// leaves none in hand.
  void PutBack(std::vector<Cells> dataRows, int row);

  /// Moves a data row to another data row's place, those between moving up. The current row number
  /// stays, and no handler runs. Places that are not there change nothing.
  void MoveRow(int row, int place);

  /// Sorts the data rows ascending: numbers by value, then the empty ones, then other texts; equal
  /// ones keep their order. The current row number stays, and no handler runs.
  void SortGeneric(Column column);

  void SetRedraw(Redraw mode);
  void Refresh();

  std::function<void(int oldRow, int oldCol, int newRow, int newCol, bool& Cancel)>
      BeforeRowColChange;
  std::function<void(int oldRow, int oldCol, int newRow, int newCol)> AfterRowColChange;

 private:
  const Cells& RowCells(int row) const;
  void Notify();

  std::vector<Cells> rows{Cells{}};
  int current = 0;
  Redraw redraw = Redraw::buffered;
};

inline std::string& Cell(KeyGrid::Cells& row, Column column) {
  return row.at(static_cast<std::size_t>(column));
}
inline const std::string& Cell(const KeyGrid::Cells& row, Column column) {
  return row.at(static_cast<std::size_t>(column));
}

}  // namespace dialwright
