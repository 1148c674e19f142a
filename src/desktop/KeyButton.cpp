#include "desktop/KeyButton.h"

#include <QKeyEvent>
#include <QPainter>
#include <QTextLayout>

#include "desktop/FaultMarks.h"
#include "desktop/HeadingFont.h"

namespace dialwright {

namespace {

constexpr double corner = 6;

QColor Mixed(const QColor& a, const QColor& b, double share) {
  const auto part = [share](int x, int y) { return static_cast<int>(x * share + y * (1 - share)); };
  return {part(a.red(), b.red()), part(a.green(), b.green()), part(a.blue(), b.blue())};
}

}  // namespace

KeyButton::KeyButton(char telephoneKey, QWidget* parent)
    : QAbstractButton(parent), key(telephoneKey) {
  setObjectName(QString("key(%1)").arg(QChar(key)));
  setFocusPolicy(Qt::TabFocus);
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void KeyButton::Show(const Face& next) {
  if (next == face) return;
  face = next;
  update();
}

QSize KeyButton::sizeHint() const {
  return {fontMetrics().averageCharWidth() * 17, fontMetrics().height() * 4};
}

QSize KeyButton::minimumSizeHint() const {
  return {fontMetrics().averageCharWidth() * 7, fontMetrics().height() * 10 / 3};
}

void KeyButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const bool opensMore = face.opens > 0;
  // What lies behind a key that opens further ones shows at its edge.
  const QRectF body =
      QRectF(rect()).adjusted(2.5, 2.5, opensMore ? -5.5 : -2.5, opensMore ? -5.5 : -2.5);
  PaintBody(painter, body);
  PaintTexts(painter, body);
}

void KeyButton::PaintBody(QPainter& painter, const QRectF& body) const {
  const QPalette& colours = palette();
  const QColor text = colours.color(QPalette::WindowText), ground = colours.color(QPalette::Window);
  const QColor line = Mixed(text, ground, 0.45);
  const bool isClash = face.state == KeyState::clash;
  const QColor edge = isClash ? FaultColour(colours) : line;
  if (face.opens > 0) {
    painter.setPen(QPen(edge, 1));
    painter.setBrush(Mixed(text, ground, 0.12));
    painter.drawRoundedRect(body.translated(3, 3), corner, corner);
  }
  painter.setBrush(face.state == KeyState::free ? QBrush(Qt::NoBrush)
                                                : QBrush(colours.color(QPalette::Base)));
  if (isDown() || isChecked()) painter.setBrush(Mixed(text, ground, 0.2));
  if (underMouse() && !isDown())
    painter.setBrush(Mixed(colours.color(QPalette::Highlight), ground, 0.18));
  painter.setPen(
      QPen(edge, isClash ? 2 : 1, face.state == KeyState::free ? Qt::DashLine : Qt::SolidLine));
  painter.drawRoundedRect(body, corner, corner);
  if (hasFocus()) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colours.color(QPalette::Highlight), 2));
    painter.drawRoundedRect(body.adjusted(2, 2, -2, -2), corner - 2, corner - 2);
  }
}

void KeyButton::PaintTexts(QPainter& painter, const QRectF& body) const {
  const QPalette& colours = palette();
  const QColor text = colours.color(QPalette::WindowText), ground = colours.color(QPalette::Window);
  const QRectF inside = body.adjusted(6, 3, -6, -3);
  const QFont digit = HeadingFont(font());
  painter.setFont(digit);
  const double line = QFontMetricsF(digit).height();
  painter.setPen(face.state == KeyState::free ? Mixed(text, ground, 0.62) : text);
  painter.drawText(QRectF(inside.topLeft(), QSizeF(inside.width(), line)),
                   Qt::AlignLeft | Qt::AlignVCenter, QString(QChar(key)));

  QFont small = font();
  small.setPixelSize(std::max(9, fontMetrics().height() * 5 / 8));
  painter.setFont(small);
  if (face.opens > 0) {
    painter.setPen(Mixed(text, ground, 0.75));
    painter.drawText(QRectF(inside.topLeft(), QSizeF(inside.width(), line)),
                     Qt::AlignRight | Qt::AlignVCenter, QString("%1 \u25b8").arg(face.opens));
  }
  if (face.state == KeyState::clash) {
    const int side = static_cast<int>(line * 0.8);
    const QPointF place(inside.left() + line * 0.9, inside.top() + (line - side) / 2);
    MarkIcon(Mark::fault, colours, side).paint(&painter, QRect(place.toPoint(), QSize(side, side)));
  }
  painter.setPen(face.state == KeyState::clash ? FaultColour(colours) : text);
  PaintLabel(painter, inside.adjusted(0, line, 0, 0));
}

// On one line or two; what is too long for them ends in dots.
void KeyButton::PaintLabel(QPainter& painter, const QRectF& place) const {
  if (face.label.isEmpty()) return;
  const QFontMetricsF metrics(painter.font());
  const QPointF lineBelow(0, metrics.height());
  const auto drawCut = [&](const QPointF& at, const QString& text) {
    painter.drawText(QRectF(at, QSizeF(place.width(), metrics.height())),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     metrics.elidedText(text, Qt::ElideRight, place.width()));
  };
  if (place.height() < 2 * metrics.height()) return drawCut(place.topLeft(), face.label);
  QTextOption wrap;
  wrap.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  QTextLayout layout(face.label, painter.font());
  layout.setTextOption(wrap);
  layout.beginLayout();
  const auto nextLine = [&] {
    QTextLine line = layout.createLine();
    if (line.isValid()) line.setLineWidth(place.width());
    return line;
  };
  const QTextLine first = nextLine(), second = nextLine();
  const bool isAll = !layout.createLine().isValid();
  layout.endLayout();
  first.draw(&painter, place.topLeft());
  if (second.isValid() && isAll)
    second.draw(&painter, place.topLeft() + lineBelow);
  else if (second.isValid())
    drawCut(place.topLeft() + lineBelow, face.label.mid(first.textLength()));
}

void KeyButton::enterEvent(QEnterEvent* event) {
  QAbstractButton::enterEvent(event);
  if (pointedAt) pointedAt(true);
}

void KeyButton::leaveEvent(QEvent* event) {
  QAbstractButton::leaveEvent(event);
  if (pointedAt && !hasFocus()) pointedAt(false);
}

void KeyButton::focusInEvent(QFocusEvent* event) {
  QAbstractButton::focusInEvent(event);
  if (pointedAt) pointedAt(true);
}

void KeyButton::focusOutEvent(QFocusEvent* event) {
  QAbstractButton::focusOutEvent(event);
  if (pointedAt && !underMouse()) pointedAt(false);
}

void KeyButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    click();
  else if (event->key() == Qt::Key_Space)
    QAbstractButton::keyPressEvent(event);
  else if (otherKey)
    otherKey(*event);
}

}  // namespace dialwright
