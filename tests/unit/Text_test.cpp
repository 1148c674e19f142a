#include "text/Text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

#include "text/Ansi.h"
#include "text/Number.h"

namespace dialwright {

using namespace std::string_view_literals;

TEST(TextTest, CaseIsThatOfAsciiLetters) {
  EXPECT_EQ(LowerCase("A[Z`\xC3\x84@"), "a[z`\xC3\x84@");
  EXPECT_TRUE(EqualsIgnoringCase("Menu_New", "mENU_nEW"));
  EXPECT_FALSE(EqualsIgnoringCase("@", "`"));
  EXPECT_FALSE(EqualsIgnoringCase("MENU", "MENU_"));
  EXPECT_FALSE(StartsWithIgnoringCase("#CR", "#CRC"));
  EXPECT_FALSE(ContainsIgnoringCase("GOTO_", "_GOTO_"));
}

TEST(TextTest, TrimmingReplacingAndSplitting) {
  EXPECT_EQ(Trim(" \ta b\r "), "\ta b\r");
  EXPECT_EQ(ReplaceAll("aaa", "aa", "b"), "ba");
  EXPECT_EQ(ReplaceAll("abc", "", "x"), "abc");
  EXPECT_EQ(ReplaceAllIgnoringCase("Key kEy key", "KEY", "k"), "k k k");
  EXPECT_TRUE(SplitAtCommas("").empty());
  EXPECT_EQ(SplitAtCommas("1,,23,"), (std::vector<std::string_view>{"1", "", "23", ""}));
}

TEST(TextTest, CharactersAreThoseOfUtf8) {
  const std::string_view text = "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80z";
  EXPECT_EQ(CharacterCount(text), 5u);
  EXPECT_EQ(FirstCharacters(text, 3), "a\xC3\xA4\xE2\x82\xAC");
  EXPECT_EQ(FirstCharacters(text, 9), text);
}

TEST(AnsiTest, EveryByteComesBack) {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes.push_back(static_cast<char>(i));
  const std::string utf8 = AnsiToUtf8(bytes);
  EXPECT_EQ(Utf8ToAnsi(utf8), bytes);
  EXPECT_EQ(AnsiToUtf8("\x80\x8A\x9F\x81\xE4"), "\xE2\x82\xAC\xC5\xA0\xC5\xB8\xC2\x81\xC3\xA4");
}

TEST(AnsiTest, WhatIsNotAnsiOrNotUtf8IsAQuestionMark) {
  const std::pair<std::string_view, std::string_view> cases[] = {
      {"\xE4\xBD\xA0.", "?."},       // beyond the code page
      {"\xC2\x80", "?"},             // the control whose number the euro sign has
      {"\xC3", "?"},                 // cut off
      {"\xC0\xAF", "??"},            // overlong
      {"\xED\xA0\x80", "???"},       // half of a pair
      {"\xF4\x90\x80\x80", "????"},  // too large
      {"\xE2\x82z", "?z"},           // cut off before a letter
  };
  for (const auto& [utf8, ansi] : cases) EXPECT_EQ(Utf8ToAnsi(utf8), ansi) << utf8;
}

TEST(AnsiTest, Utf16BothWays) {
  const std::string_view utf8 = "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80\0"sv;
  const std::string_view wide = "a\0\xE4\0\xAC\x20\x3D\xD8\x00\xDE\0\0"sv;
  EXPECT_EQ(Utf8ToUtf16(utf8), wide);
  EXPECT_EQ(Utf16ToUtf8(wide), utf8);
  EXPECT_EQ(Utf16ToUtf8("a\0b"sv), "a");
  EXPECT_EQ(Utf16ToUtf8("\x00\xDE\x3D\xD8"sv), "\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(Utf8ToUtf16("\xFF"), "\xFD\xFF");
}

TEST(NumberTest, NumericTexts) {
  const std::pair<std::string_view, double> numbers[] = {
      {" 12 ", 12},  {"\t12\r\n", 12},    {"+5", 5},      {"-5", -5},       {"1.5", 1.5},
      {".5", 0.5},   {"5.", 5},           {"1E1", 10},    {"1d1", 10},      {"1D-1", 0.1},
      {"1e+2", 100}, {"1,234.5", 1234.5}, {"1,2,3", 123}, {"&H1F", 31},     {"&h1f", 31},
      {"&O17", 15},  {"&HFFFF", 65535},   {"0001", 1},    {"1E308", 1e308}, {"1E-400", 0},
  };
  for (const auto& [text, value] : numbers) EXPECT_EQ(NumericValue(text), value) << text;
  const std::string_view others[] = {
      "",    " ",   "ten", "1a", ".",     "1E",  "E1",  "1E+",  "1.2.3",
      "1 2", "--5", "5-",  ",1", "1.2,3", "&H",  "&HG", "&O8",  "&",
      "H1",  "+",   "1*2", "#",  "1E309", "inf", "nan", "0x10", "\xC3\xA4",
  };
  for (const std::string_view text : others) EXPECT_EQ(NumericValue(text), std::nullopt) << text;
}

TEST(NumberTest, TooLargeIsToldFromTooSmall) {
  const std::string zeros(400, '0');
  EXPECT_EQ(NumericValue("1" + zeros), std::nullopt);
  EXPECT_EQ(NumericValue("1E99999999999999999999"), std::nullopt);
  EXPECT_EQ(NumericValue("&HFFFFFFFFFFFFFFFFF"), std::nullopt);
  EXPECT_EQ(NumericValue(zeros + "7"), 7.0);
  EXPECT_EQ(NumericValue("0." + zeros + "1"), 0.0);
  EXPECT_EQ(NumericValue("0." + zeros + "1E401"), 1.0);
  EXPECT_EQ(NumericValue("0.0E99999999999999999999"), 0.0);
}

TEST(NumberTest, ValueOfLeadingCharacters) {
  const std::pair<std::string_view, double> cases[] = {
      {"", 0},        {"a12", 0},         {"12a", 12},        {"-5x", -5},
      {"- 7", -7},    {".", 0},           {"1.5.2", 1.5},     {"1,234", 1},
      {"1E1", 10},    {"1d2z", 100},      {"1E", 1},          {"&H1F", 31},
      {"&HFFFF", -1}, {"&H8000", -32768}, {"&H10000", 65536}, {"&HFFFFFFFF", -1},
      {"&O17", 15},   {"&Hx", 0},
  };
  for (const auto& [text, value] : cases) EXPECT_EQ(Val(text), value) << text;
  EXPECT_EQ(Val(" 1 615 198th Street"), 1615198);
  EXPECT_EQ(Val("1E400"), HUGE_VAL);
}

}  // namespace dialwright
