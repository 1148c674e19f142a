#pragma once

#include <QWidget>

namespace dialwright {

/// Gives a widget what a screen reader speaks. The toolkit tells the reader of each setting, so
/// what it bears already is left alone.
inline void SetSpoken(QWidget& widget, const QString& name, const QString& description = {}) {
  if (widget.accessibleName() != name) widget.setAccessibleName(name);
  if (widget.accessibleDescription() != description) widget.setAccessibleDescription(description);
}

}  // namespace dialwright
