// Trims, code pages, numbers, command lines, names of languages, and the sum of a script's text.

#include "text/Text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "platform/Crc32.h"
#include "platform/ScriptChecksumComponent.h"
#include "platform/standins/CommandLine.h"
#include "platform/standins/LocaleTable.h"
#include "scripts/Checksum.h"
#include "text/Ansi.h"
#include "text/Lines.h"
#include "text/Number.h"

namespace dialwright {

using namespace std::string_view_literals;

TEST(TextTest, CaseTrimsAndSplitting) {
  EXPECT_EQ(LowerCase("A[Z`\xC3\x84@"), "a[z`\xC3\x84@");
  EXPECT_FALSE(EqualsIgnoringCase("@", "`"));
  EXPECT_FALSE(StartsWithIgnoringCase("#CR", "#CRC"));
  EXPECT_FALSE(ContainsIgnoringCase("GOTO_", "_GOTO_"));
  EXPECT_EQ(Trim(" \ta b\r "), "\ta b\r");
  EXPECT_EQ(ReplaceAll("aaa", "aa", "b"), "ba");
  EXPECT_EQ(ReplaceAllIgnoringCase("Key kEy key", "KEY", "k"), "k k k");
  EXPECT_EQ(SplitAtCommas("1,,23,"), (std::vector<std::string_view>{"1", "", "23", ""}));
  EXPECT_EQ(FirstCharacters("a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80z", 3), "a\xC3\xA4\xE2\x82\xAC");
}

TEST(AnsiTest, EveryByteOfTheCodePage) {
  // The rows 8 and 9, in which the page differs from the first 256 characters of Unicode; five of
  // their bytes are the control characters of the same number.
  const std::string rows =
      "\u20AC\xC2\x81"
      "\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\xC2\x8D"
      "\u017D\xC2\x8F"
      "\xC2\x90"
      "\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\xC2\x9D"
      "\u017E\u0178";
  std::string bytes;
  for (int byte = 0x80; byte < 0xA0; ++byte) bytes += static_cast<char>(byte);
  EXPECT_EQ(Windows1252ToUtf8(bytes), rows);
  EXPECT_EQ(Utf8ToWindows1252(rows), bytes);
  for (int byte = 0; byte < 0x100; ++byte) {
    if (byte >= 0x80 && byte < 0xA0) continue;
    const std::string ansi(1, static_cast<char>(byte));
    const std::string utf8 = Utf16ToUtf8(ansi + std::string(1, '\0'));
    EXPECT_EQ(Windows1252ToUtf8(ansi), utf8) << byte;
    EXPECT_EQ(Utf8ToWindows1252(utf8), ansi) << byte;
  }
}

TEST(AnsiTest, WhatIsNotAnsiOrNotUtf8IsAQuestionMark) {
  const std::pair<std::string_view, std::string_view> cases[] = {
      {"\xE4\xBD\xA0.", "?."},  // beyond the code page
      {"\xC2\x80", "?"},        // the control whose number the euro sign has
      {"\xED\xA0\x80", "???"},  // half of a pair
      {"\xE0\x80\x80", "???"},  // longer than it need be
      {"\xE2\x82z", "?z"},      // cut off before a letter
  };
  for (const auto& [utf8, ansi] : cases) EXPECT_EQ(Utf8ToAnsi(utf8), ansi) << utf8;
  EXPECT_EQ(Utf16ToUtf8("\x00\xDE\x3D\xD8"sv), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(NumberTest, NumericTexts) {
  const std::pair<std::string_view, double> numbers[] = {
      {"\t12\r\n", 12}, {"-5.", -5},  {"1D-1", 0.1},     {"1,234.5", 1234.5},
      {"&h1f", 31},     {"&O17", 15}, {"&HFFFF", 65535}, {"1E-400", 0},
  };
  for (const auto& [text, value] : numbers) EXPECT_EQ(NumericValue(text), value) << text;
  for (const auto* text : {"", "ten", "1a", "1 2", "1.2,3", "&HG", "&", "+", "1*2", "#", "1E+",
                           "1E309", "inf", "0x10", "&HFFFFFFFFFFFFFFFFF", "\xC3\xA4"})
    EXPECT_EQ(NumericValue(text), std::nullopt) << text;
}

TEST(NumberTest, ValueOfLeadingCharacters) {
  const std::pair<std::string_view, double> cases[] = {
      {"", 0},        {"a12", 0},         {"- 7x", -7}, {"1.5.2", 1.5}, {" 1 615 198th", 1615198},
      {"1,234", 1},   {"1d2z", 100},      {"1E", 1},    {"&H1F", 31},   {"1E400", HUGE_VAL},
      {"&HFFFF", -1}, {"&H10000", 65536},
  };
  for (const auto& [text, value] : cases) EXPECT_EQ(Val(text), value) << text;
}

TEST(CommandLineTest, Splitting) {
  const std::pair<std::string_view, std::vector<std::string>> cases[] = {
      {"  \t ", {}},
      {R"("C:\Program Files\x\" y)", {R"(C:\Program Files\x\)", "y"}},
      {R"(p "" a"b c"d)", {"p", "", "ab cd"}},
      {R"(p "a\\" "a""b" c)", {"p", R"(a\)", R"(a"b)", "c"}},
      {R"(p "a b)", {"p", "a b"}},
  };
  for (const auto& [line, words] : cases) EXPECT_EQ(SplitCommandLine(line), words) << line;
}

TEST(LocaleTableTest, NamesOfTheHost) {
  const std::pair<std::string_view, std::int32_t> cases[] = {
      {"de_DE.UTF-8", 1031}, {"de_AT@euro", 3079}, {"de", 1031},    {"de_XX", 1031},
      {"C", 1033},           {"", 1033},           {"xx_YY", 1033}, {"zh_TW.Big5", 1028},
      {"FR_ca", 3084},       {"_DE", 1033},
  };
  for (const auto& [name, id] : cases) EXPECT_EQ(LanguageOfPosixName(name), id) << name;
}

// The right-hand numbers are those that zlib's crc32 gives for the lines as they are to be counted.
TEST(ChecksumTest, LinesAndWhatIsLeftOut) {
  const std::pair<std::string_view, std::int32_t> cases[] = {
      {"", 1},
      {"123456789\r\n#CRC  17\r\n", -2005318284},
      {"  #crcXYZ\n123456789\n   #CRC", -2005318284},
      {"a\r\n\r\nb\r\n", 808096034},
      {"a\n\nb", 808096034},
      {"\xE4\x80\xFF", 499942279},
      {"a\rb", -76557932},
      {"a\r\r\n\rb\r\r\r\n", 808096034},
      {"a\r#CRC 1\rb\r", -76557932},
      {"x #CRC 1", 134879559},   // no checksum line: text stands before the mark
      {"\t#CRC 1", -968518645},  // nor this: a tab is text
      {"#CR", -207538025},
  };
  for (const auto& [bytes, checksum] : cases) EXPECT_EQ(ScriptChecksum(bytes), checksum) << bytes;
  std::string large;
  for (int line = 0; line < 1000; ++line) large += "LINE" + std::to_string(line) + "=value\r\n";
  EXPECT_EQ(ScriptChecksum(large), 1533283851);
  EXPECT_EQ(strChecksumText(0), " 0");
  EXPECT_EQ(strChecksumText(std::numeric_limits<std::int32_t>::min()), "-2147483648");
}

// Many bytes at once and one by one go different ways.
TEST(ChecksumTest, TheSameInAnyPieces) {
  std::string text;
  for (unsigned i = 0; i < 3000; ++i) text.push_back(static_cast<char>(i * i >> 3));
  for (std::size_t length = 0; length < 300; ++length) {
    const std::string_view whole = std::string_view(text).substr(length, 7 * length);
    Crc32 atOnce, single, inTwo;
    atOnce.Add(whole);
    for (std::size_t i = 0; i < whole.size(); ++i) single.Add(whole.substr(i, 1));
    inTwo.Add(whole.substr(0, length));
    inTwo.Add(whole.substr(length));
    EXPECT_EQ(atOnce.Value(), single.Value()) << length;
    EXPECT_EQ(inTwo.Value(), single.Value()) << length;
  }
}

// A large text is passed over in blocks: an odd line counts wherever it stands among plain ones.
TEST(LinesTest, PlainLinesAreTheSameAmongOthers) {
  constexpr std::string_view odd[] = {"\n", "\r", "\r\r\n", "#\r\n", "\r\n", "no end"};
  for (const std::string_view piece : odd)
    for (std::size_t before = 2030; before < 2070; ++before) {
      std::string text;
      while (text.size() < before) text += "STEP 1 PLAY 2\r\n";
      text.resize(before);
      text += piece;
      for (int line = 0; line < 200; ++line) text += "STEP 3 PLAY 4\r\n";
      std::vector<std::string_view> wanted, found;
      for (LineReader lines(text); !lines.AtEnd();) wanted.push_back(lines.Next());
      for (LineReader lines(text); !lines.AtEnd();) {
        const std::string_view plain = lines.PlainLines('#');
        ASSERT_EQ(plain.find('#'), std::string_view::npos);
        for (LineReader inside(plain); !inside.AtEnd();) found.push_back(inside.Next());
        ASSERT_TRUE(plain.empty() || plain.ends_with("\r\n"));
        if (plain.empty()) found.push_back(lines.Next());
      }
      ASSERT_EQ(found, wanted) << before << testing::PrintToString(piece);
    }
}

}  // namespace dialwright
