#pragma once

#include <QAbstractTableModel>
#include <QString>
#include <array>
#include <vector>

#include "controls/KeyGrid.h"

namespace dialwright {

/// The two columns of a key map grid that a user sees: action and key. The model holds a copy, so
/// that a view never reads a row that the grid no longer has.
class KeyGridModel : public QAbstractTableModel {
 public:
  static constexpr int shownColumns = 2;

  explicit KeyGridModel(const KeyGrid& keyGrid);

  /// Takes the grid's present texts over, also from a grid that does not draw. Returns whether any
  /// has changed.
  bool Refresh();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  using Texts = std::array<QString, shownColumns>;
  Texts TextsOf(int gridRow) const;

  const KeyGrid& grid;
  Texts heading;
  std::vector<Texts> rows;
};

}  // namespace dialwright
