#include "desktop/FontsAhead.h"

#include <fontconfig/fontconfig.h>

namespace dialwright {

// Some hundred small files of settings and lists; the toolkit finds them read.
std::jthread ReadFontsAhead() {
  return std::jthread([] { FcInit(); });
}

}  // namespace dialwright
