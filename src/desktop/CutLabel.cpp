#include "desktop/CutLabel.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace dialwright {

QString CutLabel::Fitting() const {
  return fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
}

bool CutLabel::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QLabel::event(event);
  const bool isCut = Fitting() != text();
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), isCut ? text() : QString(),
                     this);
  return true;
}

void CutLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  style()->drawItemText(&painter, contentsRect(), Qt::AlignVCenter, palette(), isEnabled(),
                        Fitting(), foregroundRole());
}

}  // namespace dialwright
