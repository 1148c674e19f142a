#include "desktop/Pictures.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "desktop/Texts.h"

namespace dialwright {

namespace {

constexpr QRectF canvas{0, 0, 100, 100};
const QColor deepBlue{0x1f, 0x4e, 0x8c};
const QColor brightBlue{0x3d, 0x8b, 0xd9};
const QColor amber{0xf2, 0xa3, 0x3a};

/// A square canvas of 100 by 100 in the middle of the place.
void FitCanvas(QPainter& painter, QSize place) {
  painter.setRenderHint(QPainter::Antialiasing);
  const double side = std::min(place.width(), place.height());
  painter.translate((place.width() - side) / 2, (place.height() - side) / 2);
  painter.scale(side / canvas.width(), side / canvas.height());
}

void PaintServer(QPainter& painter, QSize place) {
  FitCanvas(painter, place);
  painter.setPen(Qt::NoPen);
  painter.setBrush(brightBlue);
  painter.drawEllipse(QRectF(2, 2, 96, 96));

  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(QColor(255, 255, 255, 120), 3));
  for (const int halfWidth : {16, 34}) painter.drawEllipse(QPointF(50, 50), halfWidth, 46);
  for (const int height : {26, 50, 74}) {
    const double half = std::sqrt(48.0 * 48.0 - (height - 50.0) * (height - 50.0));
    painter.drawLine(QPointF(50 - half, height), QPointF(50 + half, height));
  }

  painter.setPen(Qt::NoPen);
  for (int row = 0; row < 4; ++row)
    for (int column = 0; column < 3; ++column) {
      painter.setBrush(row == 3 && column != 1 ? amber : QColor(Qt::white));
      painter.drawRoundedRect(QRectF(30 + column * 15, 20 + row * 16, 10, 10), 3, 3);
    }
}

QSize PictureSize(const QWidget& widget) {
  const int side = widget.fontMetrics().height() * 5;
  return {side, side};
}

}  // namespace

MakerPicture::MakerPicture(QWidget* parent) : QWidget(parent) {
  setAccessibleName(texts::MakerPicture());
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize MakerPicture::sizeHint() const { return PictureSize(*this); }

void MakerPicture::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  FitCanvas(painter, size());
  painter.setPen(Qt::NoPen);
  painter.setBrush(deepBlue);
  painter.drawRoundedRect(canvas, 20, 20);

  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(Qt::white, 13, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  QPainterPath letter;
  letter.moveTo(24, 27);
  letter.lineTo(50, 76);
  letter.lineTo(76, 27);
  painter.drawPath(letter);

  painter.setPen(QPen(amber, 6, Qt::SolidLine, Qt::RoundCap));
  for (const int radius : {9, 18})
    painter.drawArc(QRectF(50 - radius, 26 - radius, 2 * radius, 2 * radius), 45 * 16, 90 * 16);
  painter.setPen(Qt::NoPen);
  painter.setBrush(amber);
  painter.drawEllipse(QPointF(50, 30), 5, 5);
}

ServerPicture::ServerPicture(QWidget* parent) : QWidget(parent) {
  setAccessibleName(texts::ServerPicture());
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize ServerPicture::sizeHint() const { return PictureSize(*this); }

void ServerPicture::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PaintServer(painter, size());
}

QPixmap DrawServer(int side) {
  QPixmap picture(side, side);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  PaintServer(painter, picture.size());
  return picture;
}

}  // namespace dialwright
