#pragma once

#include <QMouseEvent>
#include <QTableView>
#include <functional>

#include "controls/KeyGrid.h"
#include "desktop/KeyGridModel.h"

namespace dialwright {

/// Shows a key map grid. The view selects nothing by itself: it tells the row that the user wants,
/// and shows the one that is current.
class GridView : public QTableView {
 public:
  explicit GridView(const KeyGrid& keyGrid, QWidget* parent = nullptr);

  void Refresh();

  /// The grid's row at a place of the viewport, 0 where there is none.
  int RowAtPlace(QPoint place) const;

  std::function<void(int row)> rowWanted;  ///< by a key

 protected:
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override { event->accept(); }
  void mouseMoveEvent(QMouseEvent* event) override { event->accept(); }
  void mouseReleaseEvent(QMouseEvent* event) override { event->accept(); }
  void mouseDoubleClickEvent(QMouseEvent* event) override { event->accept(); }
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  QSize sizeHint() const override;

 private:
  int RowsOnAPage() const;
  /// Makes the rows as high as the font wants them.
  void FitRows();
  void ShowCurrentRow();

  const KeyGrid& grid;
  KeyGridModel texts;
};

}  // namespace dialwright
