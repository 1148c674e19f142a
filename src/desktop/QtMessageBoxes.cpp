#include "desktop/QtMessageBoxes.h"

#include <QApplication>
#include <QMessageBox>

#include "desktop/QtText.h"

namespace dialwright {

MsgBoxAnswer QtMessageBoxes::MsgBox(std::string_view text, MsgBoxButtons buttons,
                                    std::string_view boxTitle) {
  QWidget* owner = QApplication::activeModalWidget();
  if (owner == nullptr && window != nullptr && window->isVisible()) owner = window;
  QMessageBox box(owner);
  const bool question = buttons == MsgBoxButtons::YesNo;
  box.setObjectName("msgbox");
  box.setWindowTitle(boxTitle.empty() ? title : ToQt(boxTitle));
  box.setTextFormat(Qt::PlainText);
  box.setText(LinesToQt(text));
  box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  box.setIcon(question ? QMessageBox::Question : QMessageBox::Information);
  box.setStandardButtons(question ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
  // To close a question otherwise than by a button is to answer No: nothing is lost by it.
  if (question) {
    box.setDefaultButton(QMessageBox::Yes);
    box.setEscapeButton(QMessageBox::No);
  }
  const int pressed = box.exec();
  if (!question) return MsgBoxAnswer::OK;
  return pressed == QMessageBox::Yes ? MsgBoxAnswer::Yes : MsgBoxAnswer::No;
}

}  // namespace dialwright
