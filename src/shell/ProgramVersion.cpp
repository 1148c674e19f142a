#include "shell/ProgramVersion.h"

namespace dialwright {

const ProgramVersion programVersion{DIALWRIGHT_VERSION_NUMBERS};

}  // namespace dialwright
