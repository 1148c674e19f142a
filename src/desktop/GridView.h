#pragma once

#include <QMouseEvent>
#include <QTableView>
#include <functional>

#include "controls/KeyGrid.h"
#include "desktop/KeyGridModel.h"

namespace dialwright {

/// Shows a key map grid. The view selects nothing by itself: it tells the row that the user wants,
/// and shows the one that is current. The keys are always in sight: where there is not the room for
/// all, the actions give way.
class GridView : public QTableView {
 public:
  GridView(const KeyGrid& keyGrid, int gridNumber, QWidget* parent = nullptr);

  void Refresh();
  /// How each row was before; empty for a row that is as it was.
  void ShowChanges(std::vector<QString> tips) { texts.ShowChanges(std::move(tips)); }
  /// Shows what is found at the rows.
  void ShowMarks(std::vector<KeyGridModel::RowMark> marks);

  /// The grid's row at a place of the viewport, 0 where there is none.
  int RowAtPlace(QPoint place) const;

  /// The row that a key leads to from the current one; 0 for a key that leads to none.
  int RowByKey(int key) const;

  std::function<void(int row)> rowWanted;  ///< by a key

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override { event->accept(); }
  void mouseMoveEvent(QMouseEvent* event) override { event->accept(); }
  void mouseReleaseEvent(QMouseEvent* event) override { event->accept(); }
  void mouseDoubleClickEvent(QMouseEvent* event) override { event->accept(); }
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  // The view is no more than a picture of the form's grid: what changes behind the key box is not
  // for a screen reader to tell cell by cell.
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

 private:
  int RowsOnAPage() const;
  /// Makes the rows as high as the font wants them.
  void FitRows();
  /// Measures the columns' texts, and shares the width among them.
  void MeasureColumns();
  void FitColumns();
  void ShowCurrentRow();

  const KeyGrid& grid;
  KeyGridModel texts;
  std::array<int, KeyGridModel::shownColumns> wanted{};  ///< the columns' widths
};

}  // namespace dialwright
