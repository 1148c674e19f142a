#pragma once

#include "platform/Clock.h"

namespace dialwright {

/// A local date and time in UTC, to the whole second. A date that does not exist gives all zeros.
SystemTime dtLocalToUTC(Clock& clock, SystemTime local);

}  // namespace dialwright
