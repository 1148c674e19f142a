#pragma once

#include <QFont>
#include <QLabel>
#include <QString>
#include <map>

namespace dialwright {

/// A label of several lines that asks for the height that its text needs at its width: a window
/// made narrow or low cuts nothing off.
class WrapLabel : public QLabel {
 public:
  explicit WrapLabel(QWidget* parent = nullptr);

  /// A layout asks for the height at the same few widths over and over, and a text takes long to
  /// break into lines: each is found once.
  int heightForWidth(int width) const override;
  QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  mutable std::map<int, int> heights;  ///< by width, of the text in the font below
  mutable QString brokenText;
  mutable QFont brokenFont;
};

}  // namespace dialwright
