#include "desktop/GridView.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>

namespace dialwright {

namespace {

/// Cells with some room around their texts, so that a long list reads easily. The current row is
/// the one that the boxes edit, and looks it wherever the keyboard is: Windows greys it otherwise.
/// All cells are of one line: their sizes need no layout of the text, of which a start has
/// hundreds.
class RoomyCells : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const int line = option.fontMetrics.height();
    const QString text = index.data(Qt::DisplayRole).toString();
    return {option.fontMetrics.horizontalAdvance(text) + 5 * line / 2, 3 * line / 2};
  }

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    option->state |= QStyle::State_Active;
  }
};

}  // namespace

GridView::GridView(const KeyGrid& keyGrid, QWidget* parent)
    : QTableView(parent), grid(keyGrid), texts(keyGrid) {
  setModel(&texts);
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setDragEnabled(false);
  setWordWrap(false);
  setShowGrid(false);
  setAlternatingRowColors(true);
  setCornerButtonEnabled(false);
  setHorizontalScrollMode(ScrollPerPixel);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  setItemDelegate(new RoomyCells(this));
  FitRows();
  // Columns as wide as their texts: a text too long for the view scrolls and is never cut.
  horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  horizontalHeader()->setStretchLastSection(true);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setSectionsClickable(false);
}

void GridView::FitRows() {
  const int height = 3 * fontMetrics().height() / 2;
  verticalHeader()->setMinimumSectionSize(height);
  verticalHeader()->setDefaultSectionSize(height);
}

void GridView::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) FitRows();
}

void GridView::Refresh() {
  const bool changed = texts.Refresh();
  if (changed) updateGeometry();
  const int shown = currentIndex().isValid() ? currentIndex().row() + 1 : 0;
  if (changed || shown != grid.Row()) ShowCurrentRow();
}

void GridView::ShowCurrentRow() {
  const QModelIndex current = texts.index(grid.Row() - 1, 0);
  if (!current.isValid()) {
    selectionModel()->clear();
    return;
  }
  selectionModel()->setCurrentIndex(
      current, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  scrollTo(current);
}

int GridView::RowAtPlace(QPoint place) const { return rowAt(place.y()) + 1; }

int GridView::RowsOnAPage() const {
  return std::max(1, viewport()->height() / std::max(1, rowHeight(0)) - 1);
}

void GridView::keyPressEvent(QKeyEvent* event) {
  const int last = grid.Rows() - 1;
  int row = grid.Row();
  switch (event->key()) {
    case Qt::Key_Up:
      row -= 1;
      break;
    case Qt::Key_Down:
      row += 1;
      break;
    case Qt::Key_PageUp:
      row -= RowsOnAPage();
      break;
    case Qt::Key_PageDown:
      row += RowsOnAPage();
      break;
    case Qt::Key_Home:
      row = 1;
      break;
    case Qt::Key_End:
      row = last;
      break;
    default:
      event->ignore();
      return;
  }
  if (last > 0 && rowWanted) rowWanted(std::clamp(row, 1, last));
}

void GridView::paintEvent(QPaintEvent* event) {
  QTableView::paintEvent(event);
  if (!hasFocus()) return;
  // The whole grid has the focus, not a cell of it: the ring goes around all of it.
  QPainter painter(viewport());
  QPen pen(palette().color(QPalette::Highlight));
  pen.setWidth(2);
  pen.setJoinStyle(Qt::MiterJoin);
  painter.setPen(pen);
  painter.drawRect(viewport()->rect().adjusted(1, 1, -1, -1));
}

void GridView::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  viewport()->update();
}

void GridView::focusOutEvent(QFocusEvent* event) {
  QTableView::focusOutEvent(event);
  viewport()->update();
}

QSize GridView::sizeHint() const {
  int width = 2 * frameWidth() + verticalScrollBar()->sizeHint().width();
  for (int column = 0; column < KeyGridModel::shownColumns; ++column)
    width += std::max(sizeHintForColumn(column), horizontalHeader()->sectionSizeHint(column));
  return {width, fontMetrics().height() * 24};
}

}  // namespace dialwright
