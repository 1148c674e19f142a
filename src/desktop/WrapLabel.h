#pragma once

#include <QLabel>

namespace dialwright {

/// A label of several lines that asks for the height that its text needs at its width: a window
/// made narrow or low cuts nothing off.
class WrapLabel : public QLabel {
 public:
  explicit WrapLabel(QWidget* parent = nullptr);

  QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
};

}  // namespace dialwright
