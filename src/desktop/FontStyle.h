#pragma once

#include <QProxyStyle>

namespace dialwright {

/// The desktop's own style, with marks of check boxes and of menus that grow with the font.
class FontStyle : public QProxyStyle {
 public:
  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override;
};

}  // namespace dialwright
