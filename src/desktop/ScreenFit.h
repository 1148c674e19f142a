#pragma once

#include <QSize>

class QWidget;

namespace dialwright {

/// Brings a window up in a size that is wanted for its contents, smaller where the screen has not
/// the room: the title bar and the frame count, and the whole window comes up in sight.
void ShowFitted(QWidget& window, QSize contents);

}  // namespace dialwright
