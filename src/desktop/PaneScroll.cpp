#include "desktop/PaneScroll.h"

#include <QApplication>
#include <QEvent>
#include <QScrollBar>
#include <algorithm>

namespace dialwright {

PaneScroll::PaneScroll(QWidget& pane, int mostCharacters) : most(mostCharacters) {
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setWidgetResizable(true);
  setWidget(&pane);
  // It is a part of the page that it stands on.
  pane.setAutoFillBackground(false);
  viewport()->setAutoFillBackground(false);
  LimitWidth();
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    if (now != nullptr && widget()->isAncestorOf(now)) ensureWidgetVisible(now, 0, 8);
  });
}

void PaneScroll::LimitWidth() {
  if (most == 0) return;
  setMaximumWidth(std::max(fontMetrics().averageCharWidth() * most, minimumSizeHint().width()));
}

void PaneScroll::changeEvent(QEvent* event) {
  QScrollArea::changeEvent(event);
  if (event->type() == QEvent::FontChange) LimitWidth();
}

int PaneScroll::Beside() const { return verticalScrollBar()->sizeHint().width(); }

QSize PaneScroll::sizeHint() const { return widget()->sizeHint() + QSize(Beside(), 0); }

QSize PaneScroll::minimumSizeHint() const {
  return {widget()->minimumSizeHint().width() + Beside(), fontMetrics().height() * 8};
}

bool PaneScroll::eventFilter(QObject* watched, QEvent* event) {
  if (watched == widget() && event->type() == QEvent::LayoutRequest) {
    LimitWidth();
    updateGeometry();
  }
  return QScrollArea::eventFilter(watched, event);
}

}  // namespace dialwright
