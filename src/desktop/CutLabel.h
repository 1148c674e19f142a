#pragma once

#include <QLabel>

namespace dialwright {

/// A label of one line that asks for no room: where its text does not fit it ends in an ellipsis,
/// and the tip has it whole.
class CutLabel : public QLabel {
 public:
  QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QString Fitting() const;
};

}  // namespace dialwright
