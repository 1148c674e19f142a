#include "desktop/SpinArrows.h"

#include <QAccessibleWidget>
#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QStyle>

namespace dialwright {

namespace {

/// A button with an arrow as large as a letter: the toolkit's own has one size for all fonts.
class ArrowButton : public QToolButton {
 public:
  explicit ArrowButton(bool pointsUp) : isUp(pointsUp) {
    setFocusPolicy(Qt::NoFocus);
    setAutoRepeat(true);
  }

 protected:
  void paintEvent(QPaintEvent* event) override {
    QToolButton::paintEvent(event);
    const double half = fontMetrics().height() * 0.3;
    QPointF centre = QRectF(rect()).center();
    if (isDown())
      centre += QPointF(style()->pixelMetric(QStyle::PM_ButtonShiftHorizontal, nullptr, this),
                        style()->pixelMetric(QStyle::PM_ButtonShiftVertical, nullptr, this));
    const double tip = isUp ? -half * 0.7 : half * 0.7;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().buttonText());
    painter.drawPolygon(QPolygonF{centre + QPointF(-half, -tip), centre + QPointF(half, -tip),
                                  centre + QPointF(0, tip)});
  }

 private:
  bool isUp;
};

QAccessibleInterface* MakeSpoken(const QString&, QObject* object) {
  auto* arrows = dynamic_cast<SpinArrows*>(object);
  return arrows == nullptr ? nullptr : new QAccessibleWidget(arrows, QAccessible::SpinBox);
}

}  // namespace

SpinArrows::SpinArrows(QWidget* parent)
    : QWidget(parent), up(new ArrowButton(true)), down(new ArrowButton(false)) {
  static const bool isSpoken = (QAccessible::installFactory(MakeSpoken), true);
  static_cast<void>(isSpoken);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(3, 3, 3, 3);  // room for the ring that shows the focus
  row->setSpacing(2);
  row->addWidget(up);
  row->addWidget(down);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  FitToFont();
  connect(up, &QToolButton::clicked, this, [this] {
    if (upClick) upClick();
  });
  connect(down, &QToolButton::clicked, this, [this] {
    if (downClick) downClick();
  });
}

void SpinArrows::SetNames(const QString& upName, const QString& downName) {
  for (const auto& [button, name] : {std::pair(up, &upName), std::pair(down, &downName)}) {
    if (button->toolTip() == *name) continue;
    button->setAccessibleName(*name);
    button->setToolTip(*name);
  }
}

void SpinArrows::FitToFont() {
  const int side = fontMetrics().height() + 6;
  for (QToolButton* button : {up, down}) button->setMinimumSize(side + side / 2, side);
}

void SpinArrows::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) FitToFont();
}

void SpinArrows::paintEvent(QPaintEvent*) {
  if (!hasFocus()) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
  painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 3, 3);
}

}  // namespace dialwright
