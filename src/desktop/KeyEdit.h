#pragma once

#include <QClipboard>
#include <QLineEdit>
#include <functional>

#include "controls/EditBox.h"

namespace dialwright {

/// Shows an edit box of the form. Everything that a user can change the text with announces itself
/// first, as a key press does, and a text that goes in is cut to the room that the box has left.
class KeyEdit : public QLineEdit {
 public:
  explicit KeyEdit(EditBox& editBox, QWidget* parent = nullptr);

  /// Takes text and selection of the edit box over.
  void Refresh();
  /// Tells the edit box what is selected here.
  void TellSelection();

  std::function<void(int keyAscii)> keyPress;     ///< before the text changes
  std::function<void(const QString&)> textTyped;  ///< after it
  std::function<void()> tellFull;                 ///< what was typed did not go in whole

  /// Puts a text in place of the one that is there, as the user would.
  void Replace(const QString& wanted);

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  /// A change that the toolkit's line edit makes by itself.
  void Change(int keyAscii, const std::function<void()>& edit);
  void TypeText(const QString& added);
  void paste(QClipboard::Mode mode);
  QString CutToRoom(const QString& added) const;

  EditBox& box;
  bool refreshing = false;
};

}  // namespace dialwright
