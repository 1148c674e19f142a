#include "desktop/Columns.h"

#include <QTreeWidget>

namespace dialwright {

void FitColumns(QTreeWidget& list) {
  const int gap = 2 * list.fontMetrics().averageCharWidth();
  for (int column = 0; column + 1 < list.columnCount(); ++column) {
    list.resizeColumnToContents(column);
    list.setColumnWidth(column, list.columnWidth(column) + gap);
  }
}

}  // namespace dialwright
