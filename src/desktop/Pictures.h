#pragma once

#include <QPixmap>
#include <QWidget>

namespace dialwright {

/// The maker's sign: a V of two strokes, in which a dial tone runs.
class MakerPicture : public QWidget {
 public:
  explicit MakerPicture(QWidget* parent = nullptr);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// The server's sign: a globe of meridians behind a telephone keypad.
class ServerPicture : public QWidget {
 public:
  explicit ServerPicture(QWidget* parent = nullptr);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// The server's sign, which is also the program's, as a square of that many pixels.
QPixmap DrawServer(int side);

}  // namespace dialwright
