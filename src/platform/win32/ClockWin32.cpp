#include "platform/win32/ClockWin32.h"

#include <windows.h>

#include <limits>

namespace dialwright {
namespace {

bool Fits(int part) { return part >= 0 && part <= std::numeric_limits<WORD>::max(); }

SystemTime OurTime(const SYSTEMTIME& time) {
  return {time.wYear,   time.wMonth,  time.wDay,         time.wHour,
          time.wMinute, time.wSecond, time.wMilliseconds};
}

std::optional<SYSTEMTIME> ItsTime(const SystemTime& time) {
  for (const int part :
       {time.year, time.month, time.day, time.hour, time.minute, time.second, time.milliseconds}) {
    if (!Fits(part)) return std::nullopt;
  }
  const auto word = [](int part) { return static_cast<WORD>(part); };
  return SYSTEMTIME{word(time.year),   word(time.month),       0,
                    word(time.day),    word(time.hour),        word(time.minute),
                    word(time.second), word(time.milliseconds)};
}

FileTime OurFileTime(const FILETIME& time) {
  return FileTime{time.dwHighDateTime} << 32 | time.dwLowDateTime;
}

FILETIME ItsFileTime(FileTime time) {
  return {static_cast<DWORD>(time & 0xFFFFFFFF), static_cast<DWORD>(time >> 32)};
}

}  // namespace

SystemTime ClockWin32::Now() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  return OurTime(now);
}

std::optional<FileTime> ClockWin32::SystemTimeToFileTime(const SystemTime& time) {
  const std::optional<SYSTEMTIME> given = ItsTime(time);
  FILETIME result{};
  if (!given || !::SystemTimeToFileTime(&*given, &result)) return std::nullopt;
  return OurFileTime(result);
}

std::optional<SystemTime> ClockWin32::FileTimeToSystemTime(FileTime time) {
  const FILETIME given = ItsFileTime(time);
  SYSTEMTIME result{};
  if (!::FileTimeToSystemTime(&given, &result)) return std::nullopt;
  return OurTime(result);
}

std::optional<FileTime> ClockWin32::LocalFileTimeToFileTime(FileTime local) {
  const FILETIME given = ItsFileTime(local);
  FILETIME result{};
  if (!::LocalFileTimeToFileTime(&given, &result)) return std::nullopt;
  return OurFileTime(result);
}

}  // namespace dialwright
