#pragma once

#include <QSize>

class QWidget;

namespace dialwright {

/// A size that is wanted for the contents of a window, smaller where the screen has not the room:
/// the title bar and the frame count.
QSize FittingSize(const QWidget& window, QSize contents);

/// Makes a window smaller and moves it, only as far as it sticks out of its screen.
void BringIntoSight(QWidget& window);

/// The same once the present changes of its contents have settled.
void SettleInSight(QWidget& window);

/// Brings a window up in such a size, and the whole of it in sight.
void ShowFitted(QWidget& window, QSize contents);

}  // namespace dialwright
