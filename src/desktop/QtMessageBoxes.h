#pragma once

#include <QString>
#include <QWidget>

#include "platform/MessageBoxes.h"

namespace dialwright {

/// Message boxes on the screen. Their text is plain and can be copied. A question about losing
/// something has No as its default button. The help can be read while one is up.
class QtMessageBoxes : public MessageBoxes {
 public:
  explicit QtMessageBoxes(QString programTitle) : title(std::move(programTitle)) {}

  MsgBoxAnswer MsgBox(std::string_view text, MsgBoxButtons buttons,
                      std::string_view boxTitle) override {
    return MarkedBox(MsgBoxMark::usual, text, buttons, boxTitle);
  }
  MsgBoxAnswer MarkedBox(MsgBoxMark mark, std::string_view text, MsgBoxButtons buttons,
                         std::string_view boxTitle) override;

  QWidget* window = nullptr;  ///< the window that the boxes belong to

 private:
  QString title;
};

}  // namespace dialwright
