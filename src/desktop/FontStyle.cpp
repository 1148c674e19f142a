#include "desktop/FontStyle.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QStyleOption>
#include <QWidget>
#include <algorithm>
#include <cstdlib>

namespace dialwright {

namespace {

/// How far apart two colours are for the eye, from 0 to 255.
int Contrast(const QColor& a, const QColor& b) { return std::abs(qGray(a.rgb()) - qGray(b.rgb())); }

QColor Mixed(const QColor& text, const QColor& ground) {
  const auto part = [](int a, int b) { return (62 * a + 38 * b) / 100; };
  return {part(text.red(), ground.red()), part(text.green(), ground.green()),
          part(text.blue(), ground.blue())};
}

struct QuietText {
  QPalette::ColorGroup group;
  QPalette::ColorRole quiet, text, ground;
};

/// Some desktops give their own text and ground, and leave these as they are on white.
constexpr QuietText quietTexts[] = {
    {QPalette::Active, QPalette::PlaceholderText, QPalette::Text, QPalette::Base},
    {QPalette::Inactive, QPalette::PlaceholderText, QPalette::Text, QPalette::Base},
    {QPalette::Disabled, QPalette::PlaceholderText, QPalette::Text, QPalette::Base},
    {QPalette::Disabled, QPalette::Text, QPalette::Text, QPalette::Base},
    {QPalette::Disabled, QPalette::WindowText, QPalette::WindowText, QPalette::Window},
    {QPalette::Disabled, QPalette::ButtonText, QPalette::ButtonText, QPalette::Button},
};

/// The arrow of a menu bar that is too narrow for all its menus.
QIcon MoreArrow() {
  constexpr int side = 16;
  QPixmap picture(side, side);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(QApplication::palette().color(QPalette::ButtonText), 2));
  for (const int left : {3, 8})
    painter.drawPolyline(QPolygon({{left, 4}, {left + 4, 8}, {left, 12}}));
  return QIcon(picture);
}

}  // namespace

void FontStyle::polish(QPalette& palette) {
  QProxyStyle::polish(palette);
  // This style draws edges darker than the window: on black nobody would see them.
  constexpr QColor darkest(0x30, 0x30, 0x30);
  if (baseStyle()->name() == "fusion")
    for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Button})
      if (qGray(palette.color(role).rgb()) < qGray(darkest.rgb())) palette.setColor(role, darkest);

  constexpr int least = 70;
  for (const QuietText& each : quietTexts) {
    const QColor ground = palette.color(QPalette::Active, each.ground);
    const QColor present = palette.color(each.group, each.quiet);
    const bool isSeen = present.alpha() == 255 ? Contrast(present, ground) >= least
                                               : Contrast(present, ground) >= 2 * least;
    if (!isSeen)
      palette.setColor(each.group, each.quiet,
                       Mixed(palette.color(QPalette::Active, each.text), ground));
  }
}

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
    case PM_TabBarTabHSpace: {
      constexpr int roomy = 12;  // so that in a large font all tabs stay in sight
      return std::min(usual, roomy);
    }
    default:
      return usual;
  }
}

void FontStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const {
  if (element != PE_FrameGroupBox || baseStyle()->name() != "fusion")
    return QProxyStyle::drawPrimitive(element, option, painter, widget);
  // This style has its frame in a file, too.
  QColor edge = option->palette.color(QPalette::WindowText);
  edge.setAlpha(38);
  // The title stands above the frame.
  constexpr int gap = 3;
  const int mark = pixelMetric(PM_ExclusiveIndicatorHeight, option, widget);
  const int title = std::max(mark, option->fontMetrics.height()) + gap;
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(edge);
  painter->setBrush(Qt::NoBrush);
  painter->drawRoundedRect(QRectF(option->rect).adjusted(0.5, title + 0.5, -0.5, -0.5), 2, 2);
  painter->restore();
}

QIcon FontStyle::standardIcon(StandardPixmap picture, const QStyleOption* option,
                              const QWidget* widget) const {
  // Every menu bar asks for it. The toolkit's own comes out of a file, for which it loads all its
  // readers of pictures before the first window is seen.
  if (picture == SP_ToolBarHorizontalExtensionButton) return MoreArrow();
  return QProxyStyle::standardIcon(picture, option, widget);
}

}  // namespace dialwright
