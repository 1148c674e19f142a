#include "platform/Clock.h"

#include <gtest/gtest.h>

#include <utility>

namespace dialwright {
namespace {

// The calendar alone, without a zone.
class Calendar : public Clock {
 public:
  SystemTime Now() override { return {}; }
  std::optional<FileTime> LocalFileTimeToFileTime(FileTime local) override { return local; }
};

TEST(ClockTest, KnownMoments) {
  Calendar clock;
  const std::pair<SystemTime, FileTime> cases[] = {
      {{1601, 1, 1, 0, 0, 0, 0}, 0},
      {{1970, 1, 1, 0, 0, 0, 0}, 116444736000000000},
      {{2000, 2, 29, 23, 59, 59, 999}, 125963423999990000},
      {{2038, 1, 19, 3, 14, 7, 0}, 137919572470000000},
  };
  for (const auto& [time, fileTime] : cases) {
    EXPECT_EQ(clock.SystemTimeToFileTime(time), fileTime);
    EXPECT_EQ(clock.FileTimeToSystemTime(fileTime), time);
  }
}

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
}

TEST(ClockTest, DatesThatDoNotExist) {
  Calendar clock;
  const SystemTime cases[] = {
      {1600, 12, 31, 0, 0, 0, 0}, {30828, 1, 1, 0, 0, 0, 0},   {2001, 2, 29, 0, 0, 0, 0},
      {1900, 2, 29, 0, 0, 0, 0},  {2000, 13, 1, 0, 0, 0, 0},   {2000, 0, 1, 0, 0, 0, 0},
      {2000, 4, 31, 0, 0, 0, 0},  {2000, 4, 0, 0, 0, 0, 0},    {2000, 4, 1, 24, 0, 0, 0},
      {2000, 4, 1, 0, 60, 0, 0},  {2000, 4, 1, 0, 0, 0, 1000}, {2000, 4, 1, -1, 0, 0, 0},
  };
  for (const SystemTime& time : cases) {
    EXPECT_EQ(clock.SystemTimeToFileTime(time), std::nullopt) << time.year << '-' << time.day;
  }
  EXPECT_EQ(clock.FileTimeToSystemTime(~FileTime{0}), std::nullopt);
}

}  // namespace
}  // namespace dialwright
