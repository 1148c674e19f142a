#include "desktop/ChangesDialog.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "beside/History.h"
#include "desktop/ChangeTexts.h"
#include "desktop/Columns.h"
#include "desktop/Dispatch.h"
#include "desktop/HelpKey.h"
#include "desktop/LanguageFontResolver.h"
#include "desktop/NumberedText.h"
#include "desktop/QtText.h"
#include "desktop/ScreenFit.h"
#include "scripts/SetupOptions.h"
#include "shell/Program.h"

namespace dialwright {

namespace {

constexpr int title = 1464;
constexpr int actionHead = 1466;
constexpr int beforeHead = 1467;
constexpr int nowHead = 1468;
constexpr int goToRow = 1473;
constexpr int revertText = 1474;
constexpr int nothingDiffers = 1475;

}  // namespace

ChangesDialog::ChangesDialog(History& steps, Dispatch& dispatch, QWidget* parent)
    : QDialog(parent), history(steps), entry(dispatch), list(new QTreeWidget) {
  const frmMain& form = history.TheForm();
  const auto text = [&form](int number) { return NumberedText(form.program, number); };
  setObjectName("changes");
  SetHelpPage(*this, "taking-back.html#changes");
  setWindowModality(Qt::WindowModal);  // the help can be read beside it
  setWindowTitle(text(title));
  setFont(LanguageFont(form.cmdSave.Font));
  list->setObjectName("changesList");
  list->setHeaderLabels({text(actionHead), text(beforeHead), text(nowHead)});
  list->setAllColumnsShowFocus(true);
  list->setUniformRowHeights(true);

  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  buttons->button(QDialogButtonBox::Close)->setAutoDefault(false);
  go = buttons->addButton(text(goToRow), QDialogButtonBox::ActionRole);
  go->setObjectName("goToRow");
  revert = buttons->addButton(text(revertText), QDialogButtonBox::ActionRole);
  revert->setObjectName("revertChange");
  auto* column = new QVBoxLayout(this);
  column->addWidget(list);
  column->addWidget(buttons);

  const auto leave = [this] {
    const Change* change = Chosen();
    if (change == nullptr || !go->isEnabled()) return;
    wanted = *change;
    accept();
  };
  connect(list, &QTreeWidget::itemSelectionChanged, this, [this] { ShowButtons(); });
  // Enter in the list and a double click go to the row too.
  go->setDefault(true);
  connect(list, &QTreeWidget::itemDoubleClicked, this, leave);
  connect(go, &QPushButton::clicked, this, leave);
  connect(revert, &QPushButton::clicked, this, [this] { RevertChosen(); });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  Fill();
  list->setFocus();
  const QFontMetrics metrics(font());
  resize(FittingSize(*this, {metrics.averageCharWidth() * 100, metrics.height() * 24}));
}

const Change* ChangesDialog::Chosen() const {
  const QTreeWidgetItem* item = list->currentItem();
  const QVariant number = item != nullptr ? item->data(0, Qt::UserRole) : QVariant();
  return number.isValid() ? &changes[number.toUInt()] : nullptr;
}

void ChangesDialog::Fill() {
  const frmMain& form = history.TheForm();
  list->clear();  // tells of it while its items still stand for the changes so far
  changes = history.Changes();
  QTreeWidgetItem* menu = nullptr;
  int grid = gridCount + 1;
  for (std::size_t i = 0; i < changes.size(); ++i) {
    const Change& change = changes[i];
    if (change.grid != grid) {
      grid = change.grid;
      menu = new QTreeWidgetItem(
          list, {Spoken(ToQt(form.SSTab1.TabCaption(grid < 0 ? setupTab : grid)))});
      menu->setFirstColumnSpanned(true);
      menu->setExpanded(true);
      QFont heading = font();
      heading.setBold(true);
      menu->setFont(0, heading);
    }
    auto* item = new QTreeWidgetItem(
        menu, {ChangedThing(form, change), BeforeText(form, change), NowText(form, change)});
    item->setData(0, Qt::UserRole, static_cast<uint>(i));
  }
  if (changes.empty()) {
    auto* nothing = new QTreeWidgetItem(list, {NumberedText(form.program, nothingDiffers)});
    nothing->setFirstColumnSpanned(true);
  }
  FitColumns(*list);
  QTreeWidgetItem* first = list->topLevelItem(0);
  list->setCurrentItem(first->childCount() > 0 ? first->child(0) : first);
  ShowButtons();
}

void ChangesDialog::ShowButtons() {
  const Change* change = Chosen();
  const frmMain& form = history.TheForm();
  const bool isBox = change != nullptr && change->kind == Change::Kind::box;
  const bool isRow = change != nullptr && !isBox && !change->token.empty() &&
                     HasRow(At(form.gridKeyMap, change->grid), change->token);
  // The order of a menu leads to the menu.
  go->setEnabled(change != nullptr && (isBox || isRow || change->kind == Change::Kind::order) &&
                 form.SSTab1.TabVisible(isBox ? setupTab : change->grid));
  revert->setEnabled(isBox || isRow);
}

void ChangesDialog::RevertChosen() {
  const Change* change = Chosen();
  if (change == nullptr) return;
  entry.Run([this, change] {
    if (change->kind == Change::Kind::box)
      history.RevertBox(change->option);
    else
      history.RevertRow(change->grid, change->token);
  });
  Fill();
}

}  // namespace dialwright
