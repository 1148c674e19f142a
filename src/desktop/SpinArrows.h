#pragma once

#include <QToolButton>
#include <QWidget>
#include <functional>

namespace dialwright {

/// The two arrows of a spin control, one above the other. The arrow keys work them as well.
class SpinArrows : public QWidget {
 public:
  explicit SpinArrows(QWidget* parent = nullptr);

  QToolButton& UpButton() { return *up; }
  QToolButton& DownButton() { return *down; }

  std::function<void()> upClick;
  std::function<void()> downClick;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void focusInEvent(QFocusEvent*) override { update(); }
  void focusOutEvent(QFocusEvent*) override { update(); }

 private:
  QToolButton* up;
  QToolButton* down;
};

}  // namespace dialwright
