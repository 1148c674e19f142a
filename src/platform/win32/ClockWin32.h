#pragma once

#include "platform/Clock.h"

namespace dialwright {

/// The clock of Windows, with its own conversions.
class ClockWin32 : public Clock {
 public:
  SystemTime Now() override;
  std::optional<FileTime> SystemTimeToFileTime(const SystemTime& time) override;
  std::optional<SystemTime> FileTimeToSystemTime(FileTime time) override;
  std::optional<FileTime> LocalFileTimeToFileTime(FileTime local) override;
};

}  // namespace dialwright
