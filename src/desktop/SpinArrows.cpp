#include "desktop/SpinArrows.h"

#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>

#include "desktop/Texts.h"

namespace dialwright {

namespace {

QToolButton* ArrowButton(Qt::ArrowType arrow, const QString& name) {
  auto* button = new QToolButton;
  button->setArrowType(arrow);
  button->setAccessibleName(name);
  button->setToolTip(name);
  button->setFocusPolicy(Qt::NoFocus);
  button->setAutoRepeat(true);
  const int side = button->fontMetrics().height() + 4;
  button->setMinimumSize(side + side / 4, side);
  return button;
}

}  // namespace

SpinArrows::SpinArrows(QWidget* parent)
    : QWidget(parent),
      up(ArrowButton(Qt::UpArrow, texts::MoveUp())),
      down(ArrowButton(Qt::DownArrow, texts::MoveDown())) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(3, 3, 3, 3);  // room for the ring that shows the focus
  column->setSpacing(1);
  column->addWidget(up);
  column->addWidget(down);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  connect(up, &QToolButton::clicked, this, [this] {
    if (upClick) upClick();
  });
  connect(down, &QToolButton::clicked, this, [this] {
    if (downClick) downClick();
  });
}

void SpinArrows::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Up)
    up->click();
  else if (event->key() == Qt::Key_Down)
    down->click();
  else
    event->ignore();
}

void SpinArrows::paintEvent(QPaintEvent*) {
  if (!hasFocus()) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
  painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 3, 3);
}

}  // namespace dialwright
