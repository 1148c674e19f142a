#pragma once

#include "platform/Failure.h"

namespace dialwright {

/// The number of the failure in which an action ends; 0 where it ends well.
template <typename Action>
int FailureNumber(Action action) {
  try {
    action();
  } catch (const RuntimeFailure& failure) {
    return failure.number;
  }
  return 0;
}

}  // namespace dialwright
