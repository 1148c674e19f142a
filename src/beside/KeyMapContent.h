#pragma once

#include "beside/Changes.h"
#include "beside/KeyMap.h"

namespace dialwright {

/// What counts of a key map. Keys, voices and boxes that it leaves out are those of `other`: where
/// it is taken in they stay as they are.
Content ContentOf(const KeyMap& map, const KeyMap& other);

}  // namespace dialwright
