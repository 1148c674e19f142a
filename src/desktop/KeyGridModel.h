#pragma once

#include <QAbstractTableModel>
#include <QString>
#include <array>
#include <vector>

#include "controls/KeyGrid.h"
#include "desktop/FaultMarks.h"

namespace dialwright {

/// The columns of a key map grid that a user sees: action and key, and the place that the telephone
/// announces the action at. The model holds a copy, so that a view never reads a row that the grid
/// no longer has.
class KeyGridModel : public QAbstractTableModel {
 public:
  static constexpr int formColumns = 2;  ///< those that are the form's own
  static constexpr int placeColumn = 2;
  static constexpr int shownColumns = 3;
  /// Whether the telephone announces the row; true in a menu that announces nothing.
  static constexpr int announcedRole = Qt::UserRole;
  /// How loud a finding at the row is, as a number of a Mark.
  static constexpr int markRole = Qt::UserRole + 1;

  /// What is found at a row: its mark, and the text that says why.
  struct RowMark {
    Mark mark = Mark::none;
    QString tip;
    friend bool operator==(const RowMark&, const RowMark&) = default;
  };
  /// Takes the marks of all rows over. Returns whether any has changed.
  bool Show(std::vector<RowMark> next);

  /// `gridNumber` tells which menu it is.
  KeyGridModel(const KeyGrid& keyGrid, int gridNumber);

  /// Takes the grid's present texts over, also from a grid that does not draw. Returns whether any
  /// has changed.
  bool Refresh();

  /// Takes over how each row was before, as a tip; empty for a row that is as it was. A row that
  /// differs is bold.
  void ShowChanges(std::vector<QString> next);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  using Texts = std::array<QString, formColumns>;
  Texts TextsOf(int gridRow) const;
  QVariant TipOf(std::size_t row) const;

  const KeyGrid& grid;
  int number;
  Texts heading;
  std::vector<Texts> rows;
  std::vector<RowMark> marks;
  std::vector<QString> changes;
  std::vector<int> places;  ///< counted from 1; 0 for a row that is not announced
};

}  // namespace dialwright
