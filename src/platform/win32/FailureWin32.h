#pragma once

#include "platform/Failure.h"

namespace dialwright {

/// The classic failure for an error number of the operating system.
Failure FailureOfWin32(unsigned long error);

/// Throws it for the calling thread's last error.
[[noreturn]] void ThrowLastError();

}  // namespace dialwright
