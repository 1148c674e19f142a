#include "platform/Clock.h"

namespace dialwright {
namespace {

constexpr FileTime unitsPerMillisecond = 10'000;
constexpr FileTime millisecondsPerDay = 86'400'000;
constexpr int firstYear = 1601;
constexpr int lastYear = 30827;

bool IsLeap(int year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

int DaysOfMonth(int year, int month) {
  constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return days[month - 1] + (month == 2 && IsLeap(year) ? 1 : 0);
}

int DaysBeforeMonth(int year, int month) {
  int days = 0;
  for (int m = 1; m < month; ++m) days += DaysOfMonth(year, m);
  return days;
}

// Days from 1601-01-01, with which a cycle of 400 years begins.
int DaysBeforeYear(int year) {
  const int years = year - firstYear;
  return years * 365 + years / 4 - years / 100 + years / 400;
}

bool Within(int value, int low, int high) { return value >= low && value <= high; }

bool Exists(const SystemTime& time) {
  return Within(time.year, firstYear, lastYear) && Within(time.month, 1, 12) &&
         Within(time.day, 1, DaysOfMonth(time.year, time.month)) && Within(time.hour, 0, 23) &&
         Within(time.minute, 0, 59) && Within(time.second, 0, 59) &&
         Within(time.milliseconds, 0, 999);
}

}  // namespace

std::optional<FileTime> Clock::SystemTimeToFileTime(const SystemTime& time) {
  if (!Exists(time)) return std::nullopt;
  const int days =
      DaysBeforeYear(time.year) + DaysBeforeMonth(time.year, time.month) + time.day - 1;
  const int seconds = (time.hour * 60 + time.minute) * 60 + time.second;
  const FileTime milliseconds = static_cast<FileTime>(days) * millisecondsPerDay +
                                static_cast<FileTime>(seconds) * 1000 +
                                static_cast<FileTime>(time.milliseconds);
  return milliseconds * unitsPerMillisecond;
}

std::optional<SystemTime> Clock::FileTimeToSystemTime(FileTime time) {
  const FileTime milliseconds = time / unitsPerMillisecond;
  const FileTime wholeDays = milliseconds / millisecondsPerDay;
  if (wholeDays >= static_cast<FileTime>(DaysBeforeYear(lastYear + 1))) return std::nullopt;

  int days = static_cast<int>(wholeDays);
  SystemTime result;
  result.year = firstYear + days / 366;  // never too late; the loop takes the few years missing
  while (DaysBeforeYear(result.year + 1) <= days) ++result.year;
  days -= DaysBeforeYear(result.year);
  result.month = 12;
  while (DaysBeforeMonth(result.year, result.month) > days) --result.month;
  result.day = days - DaysBeforeMonth(result.year, result.month) + 1;

  const int ofDay = static_cast<int>(milliseconds % millisecondsPerDay);
  result.hour = ofDay / 3'600'000;
  result.minute = ofDay / 60'000 % 60;
  result.second = ofDay / 1000 % 60;
  result.milliseconds = ofDay % 1000;
  return result;
}

}  // namespace dialwright
