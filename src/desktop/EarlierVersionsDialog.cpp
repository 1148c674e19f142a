#include "desktop/EarlierVersionsDialog.h"

#include <QDialogButtonBox>
#include <QListWidget>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <utility>

#include "beside/VersionDifferences.h"
#include "desktop/Columns.h"
#include "desktop/HelpKey.h"
#include "desktop/LanguageFontResolver.h"
#include "desktop/NumberedText.h"
#include "desktop/QtText.h"
#include "desktop/ScreenFit.h"
#include "desktop/WrapLabel.h"
#include "shell/Program.h"
#include "shell/frmMain.h"

namespace dialwright {

namespace {

/// A key with whether the menu announces it, where the two differ in that.
QString Cell(Program& program, const std::string& key, bool isVoiced, bool tellVoice) {
  QString text = key.empty() ? NumberedText(program, 1369) : ToQt(key);
  if (!tellVoice) return text;
  return text + ", " + NumberedText(program, isVoiced ? 1370 : 1371);
}

}  // namespace

EarlierVersionsDialog::EarlierVersionsDialog(frmMain& mainForm, QWidget* parent,
                                             std::function<void(int)> bring)
    : QDialog(parent),
      form(mainForm),
      versions(EarlierVersions(mainForm)),
      bringBack(std::move(bring)),
      times(new QListWidget),
      differences(new QTreeWidget),
      remark(new WrapLabel) {
  const auto text = [this](int number) { return NumberedText(form.program, number); };
  setObjectName("earlierVersionsDialog");
  SetHelpPage(*this, "earlier-versions.html");
  setWindowTitle(TitleOf(text(1361)));
  setAttribute(Qt::WA_DeleteOnClose);
  setFont(LanguageFont(form.cmdSave.Font));
  auto* column = new QVBoxLayout(this);
  auto* head = new WrapLabel;
  head->setText(text(versions.empty() ? 1363 : 1362));
  column->addWidget(head);
  auto* halves = new QHBoxLayout;
  times->setObjectName("earlierVersionsTimes");
  times->setAccessibleName(text(1364));
  for (const EarlierVersion& version : versions) times->addItem(ToQt(version.time));
  times->setMinimumWidth(times->sizeHintForColumn(0) + 4 * fontMetrics().averageCharWidth());
  differences->setObjectName("earlierVersionsDifferences");
  differences->setHeaderLabels({text(1365), text(1366), text(1367)});
  differences->setAccessibleName(text(1368));
  differences->setSelectionMode(QAbstractItemView::NoSelection);
  halves->addWidget(times, 0);
  halves->addWidget(differences, 1);
  column->addLayout(halves, 1);
  column->addWidget(remark);
  auto* buttons = new QDialogButtonBox;
  button = buttons->addButton(text(1372), QDialogButtonBox::AcceptRole);
  button->setObjectName("bringBack");
  buttons->addButton(text(1373), QDialogButtonBox::RejectRole)->setObjectName("closeEarlier");
  column->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, [this] { BringBack(); });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(times, &QListWidget::currentRowChanged, this, [this] { ShowDifferences(); });
  if (!versions.empty()) times->setCurrentRow(0);
  ShowDifferences();
  resize(FittingSize(*this, {fontMetrics().averageCharWidth() * 90, fontMetrics().height() * 24}));
}

void EarlierVersionsDialog::ShowDifferences() {
  Program& program = form.program;
  const int row = times->currentRow();
  button->setEnabled(row >= 0);
  differences->clear();
  if (row < 0) return remark->setText({});
  const EarlierVersion& version = versions[static_cast<std::size_t>(row)];
  QTreeWidgetItem* menu = nullptr;
  int grid = -1;
  for (const VersionDifference& difference : VersionDifferences(form, version)) {
    if (difference.grid != grid) {
      grid = difference.grid;
      menu = new QTreeWidgetItem(differences, {Spoken(ToQt(form.SSTab1.TabCaption(grid)))});
      menu->setFirstColumnSpanned(true);
    }
    const bool tellVoice = difference.wasVoiced != difference.isVoiced;
    new QTreeWidgetItem(menu, {ToQt(difference.action),
                               Cell(program, difference.then, difference.wasVoiced, tellVoice),
                               Cell(program, difference.now, difference.isVoiced, tellVoice)});
  }
  differences->expandAll();
  FitColumns(*differences);
  QString text = grid < 0 ? NumberedText(program, 1374) : QString();
  if (form.cmdSave.Enabled) text += (text.isEmpty() ? "" : "\n") + NumberedText(program, 1375);
  remark->setText(text);
}

void EarlierVersionsDialog::BringBack() {
  const int number = times->currentRow() + 1;
  accept();
  bringBack(number);
}

}  // namespace dialwright
