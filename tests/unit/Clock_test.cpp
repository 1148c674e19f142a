#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

#ifdef _WIN32
#include "platform/win32/ClockWin32.h"
using OwnClock = dialwright::ClockWin32;
#else
#include "platform/posix/ClockPosix.h"
using OwnClock = dialwright::ClockPosix;
#endif

namespace dialwright {

// The calendar alone, without a zone.
struct Calendar : Clock {
  SystemTime Now() override { return {}; }
  std::optional<FileTime> LocalFileTimeToFileTime(FileTime local) override { return local; }
};

TEST(ClockTest, EveryDayComesBackAndFollowsTheOneBefore) {
  Calendar clock;
  FileTime expected = 0;
  for (SystemTime time{1601, 1, 1, 0, 0, 0, 0}; time.year < 2110; ++time.day) {
    if (!clock.SystemTimeToFileTime(time)) {
      time.day = 1;
      time.month = time.month % 12 + 1;
      if (time.month == 1) ++time.year;
    }
    ASSERT_EQ(clock.SystemTimeToFileTime(time), expected) << time.year << '-' << time.month;
    ASSERT_EQ(clock.FileTimeToSystemTime(expected), time) << time.year << '-' << time.month;
    expected += 864'000'000'000;
  }
}

TEST(ClockTest, NowInTheZoneOfTheMachineIsNow) {
  OwnClock clock;
  const auto expectNow = [&] {
    const FileTime now = *clock.LocalFileTimeToFileTime(*clock.SystemTimeToFileTime(clock.Now()));
    const auto seconds = static_cast<std::time_t>(now / 10'000'000 - 11'644'473'600);
    EXPECT_LE(std::abs(seconds - std::time(nullptr)), 2);
  };
  expectNow();
#ifndef _WIN32
  const char* set = std::getenv("TZ");
  const std::string before = set != nullptr ? set : ":/etc/localtime";
  for (const char* zone : {"EST+5", "IST-5:30", before.c_str()}) {
    setenv("TZ", zone, 1);
    tzset();
    expectNow();
  }
#endif
}

}  // namespace dialwright
