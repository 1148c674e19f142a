#include "desktop/FindLine.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "desktop/Columns.h"
#include "desktop/HelpKey.h"
#include "desktop/LanguageFontResolver.h"
#include "desktop/NumberedText.h"
#include "desktop/QtText.h"
#include "desktop/ScreenFit.h"
#include "shell/Program.h"

namespace dialwright {

FindLine::FindLine(const frmMain& mainForm, GoTo goTo, QWidget* parent)
    : QDialog(parent), form(mainForm), go(std::move(goTo)) {
  const auto word = [this](int number) { return NumberedText(form.program, number); };
  setObjectName("findAction");
  SetHelpPage(*this, "keypad.html#find");
  setAttribute(Qt::WA_DeleteOnClose);
  setFont(LanguageFont(form.cmdSave.Font));
  setWindowTitle(TitleOf(word(1387)));
  line = new QLineEdit;
  line->setObjectName("findLine");
  line->setPlaceholderText(word(1403));
  line->setAccessibleName(word(1403));
  line->setClearButtonEnabled(true);
  line->installEventFilter(this);
  list = new QTreeWidget;
  list->setObjectName("findResults");
  list->setRootIsDecorated(false);
  list->setUniformRowHeights(true);
  list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list->setAlternatingRowColors(true);
  list->setFocusPolicy(Qt::NoFocus);
  const KeyGrid& grid = At(form.gridKeyMap, mainMenuGrid);
  list->setHeaderLabels(
      {ToQt(grid.Text(0, Column::Action)), ToQt(grid.Text(0, Column::KeyAssignment)), word(1405)});
  list->setAccessibleName(windowTitle());
  auto* column = new QVBoxLayout(this);
  column->addWidget(line);
  column->addWidget(list, 1);
  connect(line, &QLineEdit::textChanged, this, [this](const QString& text) { Search(text); });
  connect(line, &QLineEdit::returnPressed, this, [this] { accept(); });
  connect(list, &QTreeWidget::itemClicked, this, [this] { accept(); });

  const int letter = fontMetrics().averageCharWidth();
  const int height = std::min(parent->height() * 2 / 3, 24 * fontMetrics().height());
  resize(FittingSize(*parent, {std::min(parent->width() - 4 * letter, 90 * letter), height}));
  move(parent->mapToGlobal(QPoint((parent->width() - width()) / 2, 4 * letter)));
  Search({});
}

void FindLine::Search(const QString& text) {
  found = FindActions(form, FromQt(text));
  list->clear();
  for (const Match& match : found)
    new QTreeWidgetItem(list, {ToQt(match.row.label), ToQt(match.row.key),
                               Spoken(ToQt(form.SSTab1.TabCaption(match.grid)))});
  if (found.empty()) {
    auto* none = new QTreeWidgetItem(list, {NumberedText(form.program, 1404)});
    none->setFlags(Qt::NoItemFlags);
  } else {
    list->setCurrentItem(list->topLevelItem(0));
  }
  FitColumns(*list);
  line->setAccessibleDescription(found.empty() ? list->topLevelItem(0)->text(0)
                                               : QString::number(found.size()));
}

bool FindLine::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    const int page = 10;
    const int step = key == Qt::Key_Up         ? -1
                     : key == Qt::Key_Down     ? +1
                     : key == Qt::Key_PageUp   ? -page
                     : key == Qt::Key_PageDown ? +page
                                               : 0;
    if (step != 0 && !found.empty()) {
      const int last = list->topLevelItemCount() - 1;
      const int place = list->indexOfTopLevelItem(list->currentItem());
      list->setCurrentItem(list->topLevelItem(std::clamp(place + step, 0, last)));
      line->setAccessibleDescription(list->currentItem()->text(0));
      return true;
    }
  }
  return QDialog::eventFilter(watched, event);
}

void FindLine::accept() {
  const int place = list->indexOfTopLevelItem(list->currentItem());
  if (place < 0 || place >= static_cast<int>(found.size())) return;
  const Match match = found[static_cast<std::size_t>(place)];
  // The window is its own again before anything goes there.
  QDialog::accept();
  go(match.grid, match.row.token);
}

}  // namespace dialwright
