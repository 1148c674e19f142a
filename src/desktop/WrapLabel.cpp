#include "desktop/WrapLabel.h"

#include <QResizeEvent>

namespace dialwright {

WrapLabel::WrapLabel(QWidget* parent) : QLabel(parent) {
  setWordWrap(true);
  setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

int WrapLabel::heightForWidth(int width) const {
  if (text() != brokenText || font() != brokenFont) {
    heights.clear();
    brokenText = text();
    brokenFont = font();
  }
  const auto [place, isNew] = heights.try_emplace(width);
  if (isNew) place->second = QLabel::heightForWidth(width);
  return place->second;
}

QSize WrapLabel::minimumSizeHint() const {
  return {QLabel::minimumSizeHint().width(), heightForWidth(width())};
}

void WrapLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  if (event->oldSize().width() != event->size().width()) updateGeometry();
}

}  // namespace dialwright
