#pragma once

#include <QScrollArea>

namespace dialwright {

/// A pane that scrolls where the window is too low for it, so that
/// what stands below stays in sight. What has the keyboard is scrolled into view.
class PaneScroll : public QScrollArea {
 public:
  /// `mostCharacters` limits the width of its lines; 0 is no limit.
  explicit PaneScroll(QWidget& pane, int mostCharacters = 0);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void LimitWidth();
  int Beside() const;

  int most;
};

}  // namespace dialwright
