#include "desktop/GridView.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <algorithm>
#include <numeric>

#include "beside/Announced.h"

namespace dialwright {

namespace {

/// The colour of what is there and has no say.
QColor Quiet(const QPalette& palette) {
  const QColor text = palette.color(QPalette::Text), base = palette.color(QPalette::Base);
  const auto mixed = [](int a, int b) { return (62 * a + 38 * b) / 100; };
  return {mixed(text.red(), base.red()), mixed(text.green(), base.green()),
          mixed(text.blue(), base.blue())};
}

/// Cells with some room around their texts, so that a long list reads easily. The current row is
/// the one that the boxes edit, and looks it wherever the keyboard is: Windows greys it otherwise.
/// All cells are of one line: their sizes need no layout of the text, of which a start has
/// hundreds. Rows that the telephone does not announce are quiet, below a line.
class RoomyCells : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const int line = option.fontMetrics.height();
    const QString text = index.data(Qt::DisplayRole).toString();
    // A key has its mark behind it, sooner or later.
    const int mark = index.column() == static_cast<int>(Column::KeyAssignment) ? 3 * line / 2 : 0;
    const QVariant font = index.data(Qt::FontRole);
    const int width =
        font.isValid()
            ? QFontMetrics(qvariant_cast<QFont>(font).resolve(option.font)).horizontalAdvance(text)
            : option.fontMetrics.horizontalAdvance(text);
    return {width + 3 * line / 2 + mark, 3 * line / 2};
  }

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyledItemDelegate::paint(painter, option, index);
    const QModelIndex above = index.siblingAtRow(index.row() - 1);
    if (!above.isValid() || IsAnnounced(index) || !IsAnnounced(above)) return;
    painter->fillRect(QRect(option.rect.topLeft(), QSize(option.rect.width(), 1)),
                      Quiet(option.palette));
  }

  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override {
    const QString text = index.data(Qt::DisplayRole).toString();
    const QString about = index.data(Qt::ToolTipRole).toString();
    const bool isCut = event->type() == QEvent::ToolTip && !text.isEmpty() &&
                       sizeHint(option, index).width() > option.rect.width();
    if (!isCut) return QStyledItemDelegate::helpEvent(event, view, option, index);
    QToolTip::showText(event->globalPos(), about.isEmpty() ? text : text + "\n" + about, view);
    return true;
  }

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    option->state |= QStyle::State_Active;
    if (!IsAnnounced(index)) option->palette.setColor(QPalette::Text, Quiet(option->palette));
    const auto mark = static_cast<Mark>(index.data(KeyGridModel::markRole).toInt());
    if (mark == Mark::none || index.column() != static_cast<int>(Column::KeyAssignment)) return;
    // Never by colour alone: the mark stands behind the key.
    const int side = option->fontMetrics.height();
    option->features |= QStyleOptionViewItem::HasDecoration;
    option->icon = MarkIcon(mark, option->palette, side);
    option->decorationSize = {side, side};
    option->decorationPosition = QStyleOptionViewItem::Right;
    option->decorationAlignment = Qt::AlignRight | Qt::AlignVCenter;
    if (mark != Mark::fault) return;
    option->palette.setColor(QPalette::Text, FaultColour(option->palette));
    option->font.setBold(true);
  }

 private:
  static bool IsAnnounced(const QModelIndex& index) {
    return index.data(KeyGridModel::announcedRole).toBool();
  }
};

}  // namespace

GridView::GridView(const KeyGrid& keyGrid, int gridNumber, QWidget* parent)
    : QTableView(parent), grid(keyGrid), texts(keyGrid, gridNumber) {
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
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  setItemDelegate(new RoomyCells(this));
  FitRows();
  QHeaderView& heading = *horizontalHeader();
  heading.setSectionResizeMode(QHeaderView::Fixed);
  heading.setStretchLastSection(true);
  heading.setHighlightSections(false);
  heading.setSectionsClickable(false);
  heading.setMinimumSectionSize(1);
  heading.moveSection(KeyGridModel::placeColumn, 0);
  setColumnHidden(KeyGridModel::placeColumn, !AnnouncesActions(gridNumber));
  MeasureColumns();
}

void GridView::FitRows() {
  const int height = 3 * fontMetrics().height() / 2;
  verticalHeader()->setMinimumSectionSize(height);
  verticalHeader()->setDefaultSectionSize(height);
}

void GridView::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange) return;
  FitRows();
  MeasureColumns();
}

void GridView::MeasureColumns() {
  for (int column = 0; column < KeyGridModel::shownColumns; ++column)
    wanted[static_cast<std::size_t>(column)] =
        isColumnHidden(column)
            ? 0
            : std::max(sizeHintForColumn(column), horizontalHeader()->sectionSizeHint(column));
  FitColumns();
}

void GridView::FitColumns() {
  const auto [action, key, place] = wanted;
  setColumnWidth(static_cast<int>(Column::KeyAssignment), key);
  setColumnWidth(KeyGridModel::placeColumn, place);
  const int room = viewport()->width() - key - place;
  setColumnWidth(static_cast<int>(Column::Action), std::clamp(room, 1, action));
}

void GridView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  FitColumns();
}

void GridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QAbstractItemView::currentChanged(current, previous);
}

void GridView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QAbstractItemView::selectionChanged(selected, deselected);
}

void GridView::ShowMarks(std::vector<KeyGridModel::RowMark> marks) { texts.Show(std::move(marks)); }

void GridView::Refresh() {
  const bool changed = texts.Refresh();
  if (changed) {
    MeasureColumns();
    updateGeometry();
  }
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

int GridView::RowByKey(int key) const {
  const int last = grid.Rows() - 1;
  int row = grid.Row();
  switch (key) {
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
      return 0;
  }
  return last > 0 ? std::clamp(row, 1, last) : 0;
}

void GridView::keyPressEvent(QKeyEvent* event) {
  const int row = RowByKey(event->key());
  if (row == 0)
    event->ignore();
  else if (rowWanted)
    rowWanted(row);
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
  const int scrollBar = 2 * frameWidth() + verticalScrollBar()->sizeHint().width();
  return {scrollBar + std::accumulate(wanted.begin(), wanted.end(), 0),
          fontMetrics().height() * 24};
}

QSize GridView::minimumSizeHint() const {
  const auto [action, key, place] = wanted;
  const int someOfIt = std::min(action, fontMetrics().averageCharWidth() * 14);
  const int scrollBar = 2 * frameWidth() + verticalScrollBar()->sizeHint().width();
  return {scrollBar + someOfIt + key + place, fontMetrics().height() * 8};
}

}  // namespace dialwright
