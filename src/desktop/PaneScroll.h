#pragma once

#include <QScrollArea>

namespace dialwright {

/// A pane that is as wide as it wants to be and scrolls where the window is too low for it, so that
/// what stands below stays in sight. What has the keyboard is scrolled into view.
class PaneScroll : public QScrollArea {
 public:
  explicit PaneScroll(QWidget& pane, QWidget* parent = nullptr);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void LimitWidth();
  int Beside() const;
};

}  // namespace dialwright
