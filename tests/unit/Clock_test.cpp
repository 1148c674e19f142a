#include "platform/Clock.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

#ifdef _WIN32
#include "platform/ClockWin32.h"
#else
#include "platform/ClockPosix.h"
#endif

namespace dialwright {

#ifdef _WIN32
using OwnClock = ClockWin32;
#else
using OwnClock = ClockPosix;
#endif

// The calendar alone, without a zone.
struct Calendar : Clock {
  SystemTime Now() override { return {}; }
  std::optional<FileTime> LocalFileTimeToFileTime(FileTime local) override { return local; }
};

TEST(ClockTest, EveryDayComesBackAndFollowsTheOneBefore) {
  Calendar clock;
  FileTime expected = 0;
  for (SystemTime time{1601, 1, 1, 0, 0, 0, 0}; time.year < 2410; ++time.day) {
    if (!clock.SystemTimeToFileTime(time)) {
      time.day = 1;
      time.month = time.month % 12 + 1;
      if (time.month == 1) ++time.year;
    }
    ASSERT_EQ(clock.SystemTimeToFileTime(time), expected) << time.year << '-' << time.month;
    ASSERT_EQ(clock.FileTimeToSystemTime(expected), time) << time.year << '-' << time.month;
    expected += 864'000'000'000;
  }
  const SystemTime moment{2000, 2, 29, 23, 59, 58, 999};
  EXPECT_EQ(clock.SystemTimeToFileTime(moment), FileTime{125'963'423'989'990'000});
  EXPECT_EQ(clock.FileTimeToSystemTime(125'963'423'989'990'000), moment);
  EXPECT_EQ(clock.SystemTimeToFileTime({30828, 1, 1, 0, 0, 0, 0}), std::nullopt);
  EXPECT_EQ(clock.FileTimeToSystemTime(~FileTime{0}), std::nullopt);
}

void ExpectNow(OwnClock& clock) {
  const FileTime now = *clock.LocalFileTimeToFileTime(*clock.SystemTimeToFileTime(clock.Now()));
  const auto seconds = static_cast<std::time_t>(now / 10'000'000 - 11'644'473'600);
  EXPECT_LE(std::abs(seconds - std::time(nullptr)), 2);
}

TEST(ClockTest, NowAndTheZone) {
  OwnClock clock;
  ExpectNow(clock);
  EXPECT_EQ(clock.SystemTimeToFileTime({-1, 1, 1, 0, 0, 0, 0}), std::nullopt);
  EXPECT_EQ(clock.SystemTimeToFileTime({70'000, 1, 1, 0, 0, 0, 0}), std::nullopt);
#ifndef _WIN32
  const FileTime local = *clock.SystemTimeToFileTime({2020, 6, 1, 12, 0, 0, 0});
  const char* set = std::getenv("TZ");
  const std::string before = set != nullptr ? set : ":/etc/localtime";
  for (const auto& [zone, utc] : {std::pair{"EST+5", local + 180'000'000'000},
                                  std::pair{"IST-5:30", local - 198'000'000'000}}) {
    setenv("TZ", zone, 1);
    tzset();
    EXPECT_EQ(clock.LocalFileTimeToFileTime(local), utc) << zone;
    ExpectNow(clock);
  }
  EXPECT_EQ(clock.LocalFileTimeToFileTime(1), std::nullopt) << "before the first moment";
  setenv("TZ", before.c_str(), 1);
  tzset();
#endif
}

}  // namespace dialwright
