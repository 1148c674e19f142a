#include "desktop/FaultMarks.h"

#include <QPainter>
#include <QPixmap>

#include "desktop/QtText.h"

namespace dialwright {

namespace {

bool IsDark(const QColor& colour) { return colour.lightness() < 128; }

QColor CautionColour(const QPalette& palette) {
  return IsDark(palette.color(QPalette::Base)) ? QColor(0xff, 0xc1, 0x5a)
                                               : QColor(0x8a, 0x5a, 0x00);
}

}  // namespace

QColor FaultColour(const QPalette& palette) {
  return IsDark(palette.color(QPalette::Base)) ? QColor(0xff, 0x8f, 0x85)
                                               : QColor(0xb0, 0x1c, 0x12);
}

QIcon MarkIcon(Mark mark, const QPalette& palette, int side) {
  if (mark == Mark::none || side <= 0) return {};
  // Twice the size: it stays sharp where a point is two pixels.
  constexpr int density = 2;
  QPixmap picture(side * density, side * density);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  const double all = side * density;
  const QColor ground = palette.color(QPalette::Base);
  if (mark == Mark::fault) {
    painter.setPen(QPen(ground, all / 10));
    painter.setBrush(FaultColour(palette));
    painter.drawEllipse(QRectF(all * 0.08, all * 0.08, all * 0.84, all * 0.84));
    painter.setPen(QPen(ground, all / 7, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(all / 2, all * 0.28), QPointF(all / 2, all * 0.52));
    painter.drawPoint(QPointF(all / 2, all * 0.72));
  } else {
    painter.setPen(
        QPen(CautionColour(palette), all / 9, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(ground);
    painter.drawPolygon(
        QPolygonF({{all * 0.5, all * 0.16}, {all * 0.88, all * 0.84}, {all * 0.12, all * 0.84}}));
  }
  painter.end();
  picture.setDevicePixelRatio(density);
  QIcon icon;
  // A mark says the same on a row that is chosen.
  for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected, QIcon::Active})
    icon.addPixmap(picture, mode);
  return icon;
}

QString FindingText(const frmMain& form, const Finding& finding, int row) {
  QString text = LinesToQt(finding.text);
  const KeyGrid& grid = At(form.gridKeyMap, finding.grid);
  for (const int other : finding.rows) {
    if (other == row || other >= grid.Rows()) continue;
    text += "\n\u2022 " + ToQt(grid.Text(other, Column::Action)) + " (" +
            ToQt(grid.Text(other, Column::KeyAssignment)) + ")";
  }
  return text;
}

}  // namespace dialwright
