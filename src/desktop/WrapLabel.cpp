#include "desktop/WrapLabel.h"

#include <QResizeEvent>

namespace dialwright {

WrapLabel::WrapLabel(QWidget* parent) : QLabel(parent) {
  setWordWrap(true);
  setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

QSize WrapLabel::minimumSizeHint() const {
  return {QLabel::minimumSizeHint().width(), heightForWidth(width())};
}

void WrapLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  if (event->oldSize().width() != event->size().width()) updateGeometry();
}

}  // namespace dialwright
