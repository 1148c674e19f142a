#include "platform/Clock.h"

#include <gtest/gtest.h>

namespace dialwright {

// The calendar alone, without a zone.
struct Calendar : Clock {
  SystemTime Now() override { return {}; }
  std::optional<FileTime> LocalFileTimeToFileTime(FileTime local) override { return local; }
};

TEST(ClockTest, EveryDayComesBackAndFollowsTheOneBefore) {
  Calendar clock;
  constexpr FileTime day = 864'000'000'000;
  FileTime expected = 0;
  for (SystemTime time{1601, 1, 1, 0, 0, 0, 0}; time.year < 2410; ++time.day) {
    if (!clock.SystemTimeToFileTime(time)) {
      time.day = 1;
      time.month = time.month % 12 + 1;
      if (time.month == 1) ++time.year;
    }
    ASSERT_EQ(clock.SystemTimeToFileTime(time), expected) << time.year << '-' << time.month;
    ASSERT_EQ(clock.FileTimeToSystemTime(expected), time) << time.year << '-' << time.month;
    expected += day;
  }
  const SystemTime moment{2000, 2, 29, 23, 59, 58, 999};
  EXPECT_EQ(clock.SystemTimeToFileTime(moment), FileTime{125'963'423'989'990'000});
  EXPECT_EQ(clock.FileTimeToSystemTime(125'963'423'989'990'000), moment);
  for (const SystemTime& none : {SystemTime{1600, 12, 31, 0, 0, 0, 0},
                                 {30828, 1, 1, 0, 0, 0, 0},
                                 {2000, 13, 1, 0, 0, 0, 0},
                                 {2000, 4, 1, 24, 0, 0, 0}})
    EXPECT_EQ(clock.SystemTimeToFileTime(none), std::nullopt) << none.year;
  EXPECT_EQ(clock.FileTimeToSystemTime(~FileTime{0}), std::nullopt);
}

}  // namespace dialwright
