#include "desktop/ScreenFit.h"

#include <QScreen>
#include <QTimer>
#include <QWidget>
#include <algorithm>

namespace dialwright {

namespace {

/// When the desktop has put its frame around a new window, in milliseconds after it came up: some
/// take their time.
constexpr int lookAgain[] = {0, 100, 400};

/// What title bar and frame will take, as far as that can be known before they are there.
QMargins LikelyFrame(const QWidget& window) {
  const int side = window.fontMetrics().height() / 4;
  return {side, 2 * window.fontMetrics().height(), side, side};
}

QMargins PresentFrame(const QWidget& window) {
  const QRect outer = window.frameGeometry();
  const QRect inner = window.geometry();
  return {inner.left() - outer.left(), inner.top() - outer.top(), outer.right() - inner.right(),
          outer.bottom() - inner.bottom()};
}

}  // namespace

QSize FittingSize(const QWidget& window, QSize contents) {
  const QRect room = window.screen()->availableGeometry().marginsRemoved(LikelyFrame(window));
  return contents.boundedTo(room.size());
}

void BringIntoSight(QWidget& window) {
  if (window.isMaximized() || window.isFullScreen()) return;
  const QRect room = window.screen()->availableGeometry();
  const QRect most = room.marginsRemoved(PresentFrame(window));
  QRect place = window.geometry();
  place.setSize(place.size().boundedTo(most.size()));
  place.moveLeft(std::clamp(place.left(), most.left(), most.right() - place.width() + 1));
  place.moveTop(std::clamp(place.top(), most.top(), most.bottom() - place.height() + 1));
  if (place != window.geometry()) window.setGeometry(place);
}

void SettleInSight(QWidget& window) {
  for (const int milliseconds : lookAgain)
    QTimer::singleShot(milliseconds, &window, [&window] { BringIntoSight(window); });
}

void ShowFitted(QWidget& window, QSize contents) {
  window.resize(FittingSize(window, contents));
  window.show();
  SettleInSight(window);
}

}  // namespace dialwright
