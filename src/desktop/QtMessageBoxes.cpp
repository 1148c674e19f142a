#include "desktop/QtMessageBoxes.h"

#include <QApplication>
#include <QClipboard>
#include <QGridLayout>
#include <QMessageBox>
#include <QRegularExpression>
#include <QSpacerItem>

#include "desktop/HelpKey.h"
#include "desktop/QtText.h"

namespace dialwright {

namespace {

/// A sign that is not seen and that no line breaks at.
constexpr QChar wordJoiner{0x2060};

/// The text with its paths held together behind the drive's colon.
QString WithWholeDrives(QString text) {
  static const QRegularExpression drive(QStringLiteral("\\b([A-Za-z]:)(?=\\\\)"));
  return text.replace(drive, QStringLiteral("\\1") + wordJoiner);
}

/// What is copied out of a box is to be used elsewhere.
void KeepJoinersOutOfCopies(QMessageBox& box) {
  QClipboard* clipboard = QGuiApplication::clipboard();
  QObject::connect(clipboard, &QClipboard::changed, &box, [clipboard](QClipboard::Mode mode) {
    const QString copied = clipboard->text(mode);
    if (copied.contains(wordJoiner)) clipboard->setText(QString(copied).remove(wordJoiner), mode);
  });
}

/// Makes a box as wide as its title and the buttons of its frame take.
void WidenToTitle(QMessageBox& box) {
  auto* grid = qobject_cast<QGridLayout*>(box.layout());
  if (grid == nullptr) return;
  const QFontMetrics metrics = box.fontMetrics();
  const int width = metrics.horizontalAdvance(box.windowTitle()) * 5 / 4 + 6 * metrics.height();
  grid->addItem(new QSpacerItem(width, 0, QSizePolicy::Minimum, QSizePolicy::Fixed),
                grid->rowCount(), 0, 1, grid->columnCount());
}

QMessageBox::Icon IconOf(MsgBoxMark mark, bool isQuestion) {
  switch (mark) {
    case MsgBoxMark::news:
      return QMessageBox::Information;
    case MsgBoxMark::failure:
      return QMessageBox::Critical;
    case MsgBoxMark::loss:
      return QMessageBox::Warning;
    case MsgBoxMark::usual:
      break;
  }
  return isQuestion ? QMessageBox::Question : QMessageBox::Warning;
}

}  // namespace

MsgBoxAnswer QtMessageBoxes::MarkedBox(MsgBoxMark mark, std::string_view text,
                                       MsgBoxButtons buttons, std::string_view boxTitle) {
  QWidget* owner = QApplication::activeModalWidget();
  if (owner == nullptr && window != nullptr && window->isVisible()) owner = window;
  QMessageBox box(owner);
  const bool question = buttons == MsgBoxButtons::YesNo;
  box.setObjectName("msgbox");
  box.setWindowTitle(boxTitle.empty() ? title : ToQt(boxTitle));
  box.setTextFormat(Qt::PlainText);
  box.setText(WithWholeDrives(LinesToQt(text)));
  box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  box.setIcon(IconOf(mark, question));
  box.setStandardButtons(question ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
  // To close a question otherwise than by a button is to answer No: nothing is lost by it.
  if (question) {
    box.setDefaultButton(mark == MsgBoxMark::loss ? QMessageBox::No : QMessageBox::Yes);
    box.setEscapeButton(QMessageBox::No);
  }
  if (HelpPageOf(owner).isEmpty())
    SetHelpPage(box, mark == MsgBoxMark::failure ? "failures.html" : "messages.html");
  WidenToTitle(box);
  KeepJoinersOutOfCopies(box);
  // It holds up its own window and no other: the help may say what to answer.
  if (owner != nullptr) box.setWindowModality(Qt::WindowModal);
  const int pressed = box.exec();
  if (!question) return MsgBoxAnswer::OK;
  return pressed == QMessageBox::Yes ? MsgBoxAnswer::Yes : MsgBoxAnswer::No;
}

}  // namespace dialwright
