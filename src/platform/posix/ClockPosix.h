#pragma once

#include "platform/Clock.h"

namespace dialwright {

/// The host's clock in the host's zone.
class ClockPosix : public Clock {
 public:
  SystemTime Now() override;
  std::optional<FileTime> LocalFileTimeToFileTime(FileTime local) override;
};

}  // namespace dialwright
