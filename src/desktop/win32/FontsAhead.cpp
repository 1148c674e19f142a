#include "desktop/FontsAhead.h"

namespace dialwright {

// Windows keeps its fonts ready.
std::jthread ReadFontsAhead() { return {}; }

}  // namespace dialwright
