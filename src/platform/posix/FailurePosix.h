#pragma once

#include "platform/Failure.h"

namespace dialwright {

/// The classic failure for an error number of the operating system. A missing file is
/// `fileNotFound`: whether its folder is there is for the caller to look at.
Failure FailureOfErrno(int error);

}  // namespace dialwright
