#include "desktop/FontStyle.h"

#include <QApplication>
#include <QWidget>
#include <algorithm>

namespace dialwright {

int FontStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                           const QWidget* widget) const {
  const int usual = QProxyStyle::pixelMetric(metric, option, widget);
  switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight: {
      const QFontMetrics letters(widget != nullptr ? widget->font() : QApplication::font());
      return std::max(usual, letters.ascent());
    }
    default:
      return usual;
  }
}

}  // namespace dialwright
