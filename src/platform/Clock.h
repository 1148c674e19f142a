#pragma once

#include <cstdint>
#include <optional>

namespace dialwright {

struct SystemTime {
  int year = 0;
  int month = 0;
  int day = 0;
  int hour = 0;
  int minute = 0;
  int second = 0;
  int milliseconds = 0;

  friend bool operator==(const SystemTime&, const SystemTime&) = default;
};

/// Units of 100 nanoseconds since 1601-01-01.
using FileTime = std::uint64_t;

/// The time calls. Those that convert give nothing for a date that does not exist.
class Clock {
 public:
  virtual ~Clock() = default;
  /// The present local date and time.
  virtual SystemTime Now() = 0;
  virtual std::optional<FileTime> SystemTimeToFileTime(const SystemTime& time);
  virtual std::optional<SystemTime> FileTimeToSystemTime(FileTime time);
  /// Takes the zone's present offset off.
  virtual std::optional<FileTime> LocalFileTimeToFileTime(FileTime local) = 0;
};

}  // namespace dialwright
