#include "desktop/CardNotice.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QHBoxLayout>
#include <QPushButton>
#include <QTimer>
#include <QUrl>

#include "beside/Card.h"
#include "desktop/NumberedText.h"
#include "desktop/QtText.h"
#include "desktop/WrapLabel.h"
#include "platform/FileStore.h"
#include "platform/MessageBoxes.h"
#include "shell/frmMain.h"

namespace dialwright {

namespace {

QString CardFolder(const Program& program) {
  return QDir::fromNativeSeparators(
      ToQt(program.services.files.RealPath(program.folder + "\\PDFFoldoutBuilder\\PDF")));
}

/// A path that a line may break behind each of its separators.
QString Breakable(const QString& path) {
  const QString separator = QDir::separator();
  return QDir::toNativeSeparators(path).replace(separator, separator + QChar(0x200B));
}

}  // namespace

CardNotice::CardNotice(Program& theProgram, MessageBoxes& boxes)
    : program(theProgram), messages(boxes), place(new WrapLabel), open(new QPushButton) {
  setObjectName("cardNotice");
  open->setObjectName("openCardFolder");
  // The keyboard stays in the form; the button has a key of its own.
  open->setFocusPolicy(Qt::NoFocus);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(place, 1, Qt::AlignVCenter);
  row->addWidget(open, 0, Qt::AlignVCenter);
  hide();

  connect(open, &QPushButton::clicked, this,
          [this] { QDesktopServices::openUrl(QUrl::fromLocalFile(CardFolder(program))); });
  java.setProcessChannelMode(QProcess::MergedChannels);
  connect(&java, &QProcess::finished, this, [this](int, QProcess::ExitStatus) {
    complaint = CardJavaComplaint(*program.main, java.readAll().toStdString());
    Speak();
  });
  connect(&java, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
    if (error != QProcess::FailedToStart) return;
    complaint = CardJavaComplaint(*program.main, std::nullopt);
    Speak();
  });
  program.cardStarted = [this](const CardStart& card) { Started(card); };
}

CardNotice::~CardNotice() {
  program.cardStarted = nullptr;
  java.disconnect(this);
  java.kill();
  java.waitForFinished();
}

void CardNotice::Started(const CardStart& card) {
  const bool hasMap = program.files.FileExists(program.main->strXMLKeyMapFile);
  setVisible(card.isRunning && hasMap);
  place->setText(NumberedText(program, 1530).arg(Breakable(CardFolder(program))));
  open->setText(NumberedText(program, 1531));
  if (!hasMap) return;
  omissions = card.isOfForm ? CardOmissions(*program.main) : "";
  // Behind whatever the system still has to say.
  QTimer::singleShot(0, this, [this] { complaint ? Speak() : LookAtJava(); });
}

void CardNotice::LookAtJava() {
  if (java.state() == QProcess::NotRunning) java.start("java", {"-version"}, QIODevice::ReadOnly);
}

void CardNotice::Speak() {
  if (QApplication::activeModalWidget() != nullptr) {
    QTimer::singleShot(200, this, [this] { Speak(); });  // one box at a time
    return;
  }
  if (!complaint->empty()) {
    hide();
    messages.MsgBox(*complaint, MsgBoxButtons::OK, {});
  } else if (!omissions.empty() && omissions != said) {
    said = omissions;
    messages.MsgBox(omissions, MsgBoxButtons::OK, {});
  }
}

}  // namespace dialwright
