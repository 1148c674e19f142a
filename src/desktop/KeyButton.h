#pragma once

#include <QAbstractButton>
#include <functional>

#include "beside/Keypad.h"

namespace dialwright {

/// One key of the keypad: the digit, the label of its action, how many sequences it opens, and its
/// state by shape as well as by colour.
class KeyButton : public QAbstractButton {
 public:
  struct Face {
    KeyState state = KeyState::free;
    QString label;
    int opens = 0;
    friend bool operator==(const Face&, const Face&) = default;
  };

  explicit KeyButton(char telephoneKey, QWidget* parent = nullptr);

  void Show(const Face& next);
  char Key() const { return key; }

  std::function<void(bool)> pointedAt;  ///< the pointer or the keyboard has come, or has gone

  std::function<void(QKeyEvent&)> otherKey;  ///< a key that does not press the button

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void PaintBody(QPainter& painter, const QRectF& body) const;
  /// The label on two lines at most.
  void PaintLabel(QPainter& painter, const QRectF& place) const;
  void PaintTexts(QPainter& painter, const QRectF& body) const;

  char key;
  Face face;
};

}  // namespace dialwright
