#include "scripts/modTimeFunctions.h"

namespace dialwright {

SystemTime dtLocalToUTC(Clock& clock, SystemTime local) {
  local.milliseconds = 0;
  FileTime time = clock.SystemTimeToFileTime(local).value_or(0);
  if (time != 0) time = clock.LocalFileTimeToFileTime(time).value_or(0);
  return clock.FileTimeToSystemTime(time).value_or(SystemTime{});
}

}  // namespace dialwright
