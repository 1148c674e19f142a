#include "desktop/KeyGridModel.h"

#include <QFont>
#include <utility>

#include "beside/Announced.h"
#include "desktop/QtText.h"

namespace dialwright {

KeyGridModel::KeyGridModel(const KeyGrid& keyGrid, int gridNumber)
    : grid(keyGrid), number(gridNumber) {
  Refresh();
}

KeyGridModel::Texts KeyGridModel::TextsOf(int gridRow) const {
  return {ToQt(grid.Text(gridRow, Column::Action)),
          ToQt(grid.Text(gridRow, Column::KeyAssignment))};
}

bool KeyGridModel::Refresh() {
  bool changed = false;
  if (const Texts texts = TextsOf(0); texts != heading) {
    heading = texts;
    changed = true;
    emit headerDataChanged(Qt::Horizontal, 0, formColumns - 1);
  }
  std::vector<Texts> present;
  for (int row = 1; row < grid.Rows(); ++row) present.push_back(TextsOf(row));
  std::vector<int> presentPlaces = AnnouncedPlaces(grid, number);
  if (present == rows && presentPlaces == places) return changed;

  if (present.size() != rows.size()) {
    beginResetModel();
    rows = std::move(present);
    places = std::move(presentPlaces);
    endResetModel();
  } else {
    rows = std::move(present);
    places = std::move(presentPlaces);
    emit dataChanged(index(0, 0), index(static_cast<int>(rows.size()) - 1, shownColumns - 1));
  }
  return true;
}

bool KeyGridModel::Show(std::vector<RowMark> next) {
  if (next == marks) return false;
  marks = std::move(next);
  if (!rows.empty())
    emit dataChanged(index(0, 0), index(static_cast<int>(rows.size()) - 1, shownColumns - 1));
  return true;
}

void KeyGridModel::ShowChanges(std::vector<QString> next) {
  if (next == changes) return;
  changes = std::move(next);
  if (!rows.empty())
    emit dataChanged(index(0, 0), index(static_cast<int>(rows.size()) - 1, shownColumns - 1));
}

int KeyGridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows.size());
}

int KeyGridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : shownColumns;
}

QVariant KeyGridModel::TipOf(std::size_t row) const {
  QStringList tips;
  if (row < marks.size()) tips << marks[row].tip;
  if (row < changes.size()) tips << changes[row];
  tips.removeAll(QString());
  return tips.isEmpty() ? QVariant() : tips.join('\n');
}

QVariant KeyGridModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const auto row = static_cast<std::size_t>(index.row());
  if (role == markRole) return static_cast<int>(row < marks.size() ? marks[row].mark : Mark::none);
  if (role == Qt::ToolTipRole || role == Qt::AccessibleDescriptionRole) return TipOf(row);
  if (role == Qt::FontRole) {
    if (row >= changes.size() || changes[row].isEmpty()) return {};
    QFont bold;
    bold.setBold(true);
    return bold;
  }
  if (role == announcedRole) return !AnnouncesActions(number) || places[row] != 0;
  if (index.column() == placeColumn) {
    if (role == Qt::TextAlignmentRole) return int(Qt::AlignRight | Qt::AlignVCenter);
    if (role == Qt::DisplayRole && places[row] != 0) return QString::number(places[row]);
    return {};
  }
  if (role != Qt::DisplayRole) return {};
  return rows[row][static_cast<std::size_t>(index.column())];
}

QVariant KeyGridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= formColumns) return {};
  if (role == Qt::TextAlignmentRole) return int(Qt::AlignLeft | Qt::AlignVCenter);
  if (role != Qt::DisplayRole) return {};
  return heading[static_cast<std::size_t>(section)];
}

}  // namespace dialwright
