#pragma once

#include <QProxyStyle>

namespace dialwright {

/// The desktop's own style, with marks of check boxes and of menus that grow with the font, and
/// with quiet texts and edges that can be seen in a dark palette.
class FontStyle : public QProxyStyle {
 public:
  using QProxyStyle::polish;
  void polish(QPalette& palette) override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  QIcon standardIcon(StandardPixmap picture, const QStyleOption* option,
                     const QWidget* widget) const override;
};

}  // namespace dialwright
