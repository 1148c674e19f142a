// Conversions of texts and numbers against the system's own.

#include <gtest/gtest.h>
#include <windows.h>
// after windows.h
#include <oleauto.h>

#include <algorithm>
#include <cmath>

#include "Rounds.h"
#include "platform/win32/Win32Text.h"
#include "text/Ansi.h"
#include "text/Number.h"

namespace dialwright {
namespace {

constexpr UINT westEuropean = 1252;
constexpr LCID english = 1033;

TEST(AnsiTest, EveryByteAndBack) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string ansi(1, static_cast<char>(byte));
    wchar_t wide = 0;
    ASSERT_EQ(MultiByteToWideChar(westEuropean, 0, ansi.data(), 1, &wide, 1), 1);
    EXPECT_EQ(Windows1252ToUtf8(ansi), NarrowText({&wide, 1})) << byte;
    EXPECT_EQ(Utf8ToWindows1252(NarrowText({&wide, 1})), ansi) << byte;
  }
}

// A separator of thousands behind the point, a sign behind the number, marks of a currency and
// parentheses are not for keys and places in a menu; the letter D of an exponent is not for the
// system.
TEST(NumberTest, NumericTest) {
  Dice dice(5);
  const int rounds = Rounds(50000);
  int numbers = 0;
  for (int round = 0; round < rounds; ++round) {
    std::string inner = dice.Text("+-", 1) + dice.Text("0123456789.,", 7);
    if (inner.find(',', std::min(inner.find('.'), inner.size())) != std::string::npos) continue;
    const std::string marks[] = {"E", "e", "E+", "e-", "E-", "E.", "EE"};
    if (inner.find_first_of("0123456789") != std::string::npos && dice.OneIn(3))
      inner += dice.OneOf(marks) + dice.Text("0123456789", 2);
    const std::string text = dice.Text(" ", 2) + inner + dice.Text(" ", 2);
    const auto ours = NumericValue(text);
    double theirs = 0;
    std::wstring wide = WideText(text);
    ASSERT_EQ(ours.has_value(), VarR8FromStr(wide.data(), english, 0, &theirs) == S_OK)
        << '"' << text << '"';
    if (!ours) continue;
    ++numbers;
    ASSERT_LE(std::abs(*ours - theirs), std::abs(*ours) * 1e-14) << text;
  }
  std::printf("%d numbers among %d texts\n", numbers, rounds);
}

}  // namespace
}  // namespace dialwright
