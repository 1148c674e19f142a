#pragma once

#include <QFont>

namespace dialwright {

/// The font of headings: bold, and a little larger than what they head. There is one for all, as
/// each font that a window shows takes its time to be found and read.
inline QFont HeadingFont(QFont text) {
  text.setBold(true);
  if (text.pointSizeF() > 0) text.setPointSizeF(text.pointSizeF() * 1.2);
  return text;
}

}  // namespace dialwright
