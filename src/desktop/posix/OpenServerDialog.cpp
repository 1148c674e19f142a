#include "desktop/posix/OpenServerDialog.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include "desktop/NumberedText.h"
#include "desktop/Pictures.h"
#include "desktop/posix/ServerFolder.h"

namespace dialwright {

namespace {

QLabel* Paragraph(const QString& text) {
  auto* label = new QLabel(text);
  label->setWordWrap(true);
  label->setTextFormat(Qt::PlainText);
  return label;
}

}  // namespace

OpenServerDialog::OpenServerDialog(QString shipped, const QString& fault, bool isFirst,
                                   QWidget* parent)
    : QDialog(parent), shippedFolder(std::move(shipped)) {
  setObjectName("openServer");
  setWindowTitle(NumberedText(1550));
  setWindowIcon(QIcon(DrawServer(64)));
  Build(isFirst);
  Tell(fault);
}

void OpenServerDialog::Build(bool isFirst) {
  auto* column = new QVBoxLayout(this);
  column->setSpacing(12);

  faultRow = new QWidget;
  auto* row = new QHBoxLayout(faultRow);
  row->setContentsMargins(0, 0, 0, 0);
  auto* mark = new QLabel;
  mark->setPixmap(
      style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(fontMetrics().height() * 2));
  faultText = Paragraph({});
  faultText->setObjectName("fault");
  faultText->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  row->addWidget(mark, 0, Qt::AlignTop);
  row->addWidget(faultText, 1);
  column->addWidget(faultRow);

  auto* head = new QHBoxLayout;
  head->setSpacing(12);
  head->addWidget(new ServerPicture, 0, Qt::AlignTop);
  head->addWidget(Paragraph(NumberedText(1551)), 1);
  column->addLayout(head);

  auto* choose = new QPushButton(NumberedText(1552));
  choose->setObjectName("choose");
  auto* sample = new QPushButton(NumberedText(1553));
  sample->setObjectName("sample");
  sample->setEnabled(QDir(shippedFolder + "/sample").exists());
  for (QPushButton* button : {choose, sample}) column->addWidget(button);
  connect(choose, &QPushButton::clicked, this, [this] { Browse(); });
  connect(sample, &QPushButton::clicked, this, [this] { TrySample(); });
  choose->setDefault(true);

  const QStringList folders = LastServers();
  last = new QListWidget;
  last->setObjectName("last");
  last->addItems(folders);
  last->setTextElideMode(Qt::ElideMiddle);
  auto* lastLabel = new QLabel(NumberedText(1554));
  lastLabel->setBuddy(last);
  column->addWidget(lastLabel);
  column->addWidget(last, 1);
  auto* buttons = new QDialogButtonBox;
  QPushButton* open = buttons->addButton(QDialogButtonBox::Open);
  QPushButton* leave = buttons->addButton(QDialogButtonBox::Cancel);
  if (isFirst) leave->setText(NumberedText(1037));
  column->addWidget(buttons);
  connect(open, &QPushButton::clicked, this, [this] { Choose(last->currentItem()->text()); });
  connect(last, &QListWidget::itemActivated, this,
          [this](QListWidgetItem* item) { Choose(item->text()); });
  connect(last, &QListWidget::currentItemChanged, open,
          [open](QListWidgetItem* item) { open->setEnabled(item != nullptr); });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  const bool any = !folders.isEmpty();
  for (QWidget* widget :
       {static_cast<QWidget*>(lastLabel), static_cast<QWidget*>(last), static_cast<QWidget*>(open)})
    widget->setVisible(any);
  if (any) {
    last->setCurrentRow(0);
    last->setFocus();
    open->setDefault(true);
    last->setMaximumHeight(fontMetrics().height() * 8);
  }
  setMinimumWidth(fontMetrics().averageCharWidth() * 76);
}

void OpenServerDialog::Choose(const QString& candidate) {
  const QString fault = ServerFolderFault(candidate);
  if (!fault.isEmpty()) return Tell(fault);
  folder = candidate;
  accept();
}

void OpenServerDialog::Browse() {
  const QString chosen = QFileDialog::getExistingDirectory(this, NumberedText(1550));
  if (!chosen.isEmpty()) Choose(chosen);
}

void OpenServerDialog::TrySample() {
  QString fault;
  const QString sample = SampleServer(shippedFolder, fault);
  sample.isEmpty() ? Tell(fault) : Choose(sample);
}

void OpenServerDialog::Tell(const QString& fault) {
  faultText->setText(fault);
  faultRow->setVisible(!fault.isEmpty());
}

}  // namespace dialwright
