#include "platform/ClockPosix.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <string>
#include <utility>

namespace dialwright {

TEST(ClockPosixTest, LocalTime) {
  ClockPosix clock;
  const FileTime local = *clock.SystemTimeToFileTime({2020, 6, 1, 12, 0, 0, 0});
  const std::pair<const char*, FileTime> zones[] = {
      {"UTC0", local}, {"EST+5", local + 180'000'000'000}, {"IST-5:30", local - 198'000'000'000}};
  const char* set = std::getenv("TZ");
  const std::string before = set != nullptr ? set : ":/etc/localtime";
  for (const auto& [zone, utc] : zones) {
    setenv("TZ", zone, 1);
    tzset();
    EXPECT_EQ(clock.LocalFileTimeToFileTime(local), utc) << zone;
    const FileTime now = *clock.LocalFileTimeToFileTime(*clock.SystemTimeToFileTime(clock.Now()));
    const auto seconds = static_cast<std::time_t>(now / 10'000'000 - 11'644'473'600);
    EXPECT_LE(std::abs(seconds - std::time(nullptr)), 2) << zone;
  }
  EXPECT_EQ(clock.LocalFileTimeToFileTime(1), std::nullopt) << "before the first moment";
  setenv("TZ", before.c_str(), 1);
  tzset();
}

}  // namespace dialwright
