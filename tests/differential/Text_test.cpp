// Conversions of texts, numbers, command lines and dates against the system's own.

#include <gtest/gtest.h>
#include <windows.h>
// after windows.h
#include <oleauto.h>
#include <shellapi.h>

#include <algorithm>
#include <cmath>

#include "Rounds.h"
#include "platform/ClockWin32.h"
#include "platform/CommandLine.h"
#include "platform/Win32Text.h"
#include "text/Ansi.h"
#include "text/Number.h"

namespace dialwright {
namespace {

constexpr UINT westEuropean = 1252;

TEST(AnsiTest, EveryByteAndCharacter) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string ansi(1, static_cast<char>(byte));
    wchar_t wide = 0;
    ASSERT_EQ(MultiByteToWideChar(westEuropean, 0, ansi.data(), 1, &wide, 1), 1);
    EXPECT_EQ(Windows1252ToUtf8(ansi), NarrowText({&wide, 1})) << byte;
  }
  for (unsigned unit = 0; unit < 0x10000; ++unit) {
    if (unit >= 0xD800 && unit < 0xE000) continue;
    const auto wide = static_cast<wchar_t>(unit);
    char ansi = 0;
    ASSERT_EQ(WideCharToMultiByte(westEuropean, WC_NO_BEST_FIT_CHARS, &wide, 1, &ansi, 1, nullptr,
                                  nullptr),
              1);
    ASSERT_EQ(Utf8ToWindows1252(NarrowText({&wide, 1})), std::string(1, ansi)) << unit;
  }
}

TEST(AnsiTest, Utf16AndUtf8) {
  Dice dice(4);
  const int rounds = Rounds(20000);
  for (int round = 0; round < rounds; ++round) {
    std::wstring wide;
    for (std::size_t i = dice.below(8); i > 0; --i) {
      const unsigned bases[] = {0x20, 0x80, 0x7F0, 0x2000, 0xD7F0, 0xD800, 0xDC00, 0xFFF0};
      wide += static_cast<wchar_t>(dice.oneOf(bases) + dice.below(16));
    }
    char bytes[64] = {};
    const int count = WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()),
                                          bytes, sizeof bytes, nullptr, nullptr);
    ASSERT_EQ(Visible(NarrowText(wide)), Visible({bytes, static_cast<std::size_t>(count)}));

    const std::string utf8 = dice.text("a\x7F\x80\xBF\xC2\xC3\xE0\xED\xEF\xF0\xF4\xF5\xA0\x9F", 8);
    wchar_t units[64] = {};
    const int length = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, utf8.data(),
                                           static_cast<int>(utf8.size()), units, 64);
    const std::wstring ours = WideText(utf8);
    if (length > 0 || utf8.empty()) {
      ASSERT_EQ(ours, std::wstring(units, static_cast<std::size_t>(length))) << Visible(utf8);
    } else {
      ASSERT_NE(ours.find(L'\uFFFD'), std::wstring::npos) << Visible(utf8);
    }
  }
}

std::optional<double> TheirNumber(const std::string& text) {
  double value = 0;
  std::wstring wide = WideText(text);
  constexpr LCID english = 1033;
  if (VarR8FromStr(wide.data(), english, 0, &value) != S_OK) return std::nullopt;
  return value;
}

// A separator of thousands behind the point, a sign behind the number, marks of a currency and
// parentheses are not for keys and places in a menu; the letter D of an exponent is not for the
// system.
TEST(NumberTest, NumericTest) {
  Dice dice(5);
  const int rounds = Rounds(50000);
  int numbers = 0;
  for (int round = 0; round < rounds; ++round) {
    std::string inner = dice.text("+-", 1) + dice.text("0123456789.,", 7);
    if (inner.find(',', std::min(inner.find('.'), inner.size())) != std::string::npos) continue;
    const std::string marks[] = {"E", "e", "E+", "e-", "E-", "E.", "EE"};
    if (inner.find_first_of("0123456789") != std::string::npos && dice.oneIn(3))
      inner += dice.oneOf(marks) + dice.text("0123456789", 2);
    const std::string text = dice.text(" ", 2) + inner + dice.text(" ", 2);
    const auto ours = NumericValue(text);
    const auto theirs = TheirNumber(text);
    ASSERT_EQ(ours.has_value(), theirs.has_value()) << '"' << text << '"';
    if (!ours) continue;
    ++numbers;
    ASSERT_LE(std::abs(*ours - *theirs), std::abs(*ours) * 1e-14) << text;
  }
  std::printf("%d numbers among %d texts\n", numbers, rounds);
}

// Of two marks within marks the system makes one that also ends them, which compilers' libraries
// have long ceased to do.
TEST(CommandLineTest, Splitting) {
  Dice dice(6);
  const int rounds = Rounds(20000);
  for (int round = 0; round < rounds; ++round) {
    const std::string line = "p " + dice.text("ab \t\"\\\\\";", 12);
    if (line.find("\"\"") != std::string::npos) continue;
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(WideText(line).c_str(), &count);
    std::vector<std::string> theirs;
    for (int i = 0; i < count; ++i) theirs.push_back(NarrowText(words[i]));
    LocalFree(words);
    ASSERT_EQ(SplitCommandLine(line), theirs) << line;
  }
}

// The system that the tests run under takes the 29th of February in every year.
TEST(ClockTest, Calendar) {
  Dice dice(7);
  ClockWin32 theirs;
  const int rounds = Rounds(50000);
  int dates = 0;
  for (int round = 0; round < rounds; ++round) {
    const auto part = [&dice](int low, int high) {
      return low + static_cast<int>(dice.below(static_cast<std::size_t>(high - low)));
    };
    const SystemTime time{part(1599, 4000), part(0, 14), part(0, 33),  part(0, 25),
                          part(0, 61),      part(0, 61), part(0, 1001)};
    if (time.month == 2 && time.day == 29) continue;
    const auto ours = theirs.Clock::SystemTimeToFileTime(time);
    ASSERT_EQ(ours, theirs.SystemTimeToFileTime(time))
        << time.year << '-' << time.month << '-' << time.day << ' ' << time.hour << ':'
        << time.minute << ':' << time.second << '.' << time.milliseconds;
    if (!ours) continue;
    ++dates;
    ASSERT_EQ(theirs.Clock::FileTimeToSystemTime(*ours), theirs.FileTimeToSystemTime(*ours));
  }
  std::printf("%d dates among %d\n", dates, rounds);
}

}  // namespace
}  // namespace dialwright
