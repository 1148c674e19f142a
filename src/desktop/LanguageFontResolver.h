#pragma once

#include <QFont>

#include "controls/Control.h"

namespace dialwright {

/// The font that shows a control's texts: the named one where it is installed, else one that has
/// the letters of its script. Size and weight stay the user's.
QFont LanguageFont(const ControlFont& font);

}  // namespace dialwright
