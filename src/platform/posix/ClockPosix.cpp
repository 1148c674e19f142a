#include "platform/posix/ClockPosix.h"

#include <ctime>

namespace dialwright {
namespace {

struct LocalNow {
  std::tm parts{};
  long nanoseconds = 0;
};

LocalNow ReadClock() {
  LocalNow now;
  std::timespec time{};
  clock_gettime(CLOCK_REALTIME, &time);
  localtime_r(&time.tv_sec, &now.parts);
  now.nanoseconds = time.tv_nsec;
  return now;
}

}  // namespace

SystemTime ClockPosix::Now() {
  const LocalNow now = ReadClock();
  SystemTime time;
  time.year = now.parts.tm_year + 1900;
  time.month = now.parts.tm_mon + 1;
  time.day = now.parts.tm_mday;
  time.hour = now.parts.tm_hour;
  time.minute = now.parts.tm_min;
  time.second = now.parts.tm_sec < 60 ? now.parts.tm_sec : 59;  // a leap second has no file time
  time.milliseconds = static_cast<int>(now.nanoseconds / 1'000'000);
  return time;
}

std::optional<FileTime> ClockPosix::LocalFileTimeToFileTime(FileTime local) {
  constexpr FileTime unitsPerSecond = 10'000'000;
  const long offset = ReadClock().parts.tm_gmtoff;
  const FileTime units = static_cast<FileTime>(offset < 0 ? -offset : offset) * unitsPerSecond;
  if (offset < 0) return local + units;
  if (local < units) return std::nullopt;
  return local - units;
}

}  // namespace dialwright
