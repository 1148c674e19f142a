#include "text/Text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

#include "platform/CommandLine.h"
#include "platform/LocaleTable.h"
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

TEST(AnsiTest, OddUtf16) {
  EXPECT_EQ(Utf16ToUtf8("a\0b"sv), "a");
  EXPECT_EQ(Utf16ToUtf8("\x00\xDE\x3D\xD8"sv), "\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(Utf8ToUtf16("\xFF"), "\xFD\xFF");
}

TEST(NumberTest, NumericTexts) {
  const std::pair<std::string_view, double> numbers[] = {
      {"\t12\r\n", 12},    {"-5.", -5},      {"1d1", 10},   {"1D-1", 0.1},
      {"1,234.5", 1234.5}, {"&H1F", 31},     {"&h1f", 31},  {"&O17", 15},
      {"&HFFFF", 65535},   {"1E308", 1e308}, {"1E-400", 0},
  };
  for (const auto& [text, value] : numbers) EXPECT_EQ(NumericValue(text), value) << text;
  const std::string_view others[] = {
      "",    "ten", "1a", "1 2", "1.2,3", "&H",    "&HG", "&O8", "&",    "H1",       "+",
      "1*2", "#",   "E1", "1E",  "1E+",   "1E309", "inf", "nan", "0x10", "\xC3\xA4",
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

TEST(CommandLineTest, Splitting) {
  const std::pair<std::string_view, std::vector<std::string>> cases[] = {
      {"  \t ", {}},
      {R"("C:\Program Files\x\" y)", {R"(C:\Program Files\x\)", "y"}},
      {R"(p "" x)", {"p", "", "x"}},
      {R"(p a"b c"d)", {"p", "ab cd"}},
      {R"(p "a\\" b)", {"p", R"(a\)", "b"}},
      {R"(p "a""b" c)", {"p", R"(a"b)", "c"}},
      {R"(p "a b)", {"p", "a b"}},
  };
  for (const auto& [line, words] : cases) EXPECT_EQ(SplitCommandLine(line), words) << line;
}

TEST(LocaleTableTest, NamesOfTheHost) {
  const std::pair<std::string_view, std::int32_t> cases[] = {
      {"de_DE.UTF-8", 1031}, {"de_AT@euro", 3079}, {"de", 1031},    {"de_XX", 1031},
      {"en_GB", 2057},       {"C", 1033},          {"POSIX", 1033}, {"", 1033},
      {"xx_YY", 1033},       {"es_AR", 11274},     {"pt", 1046},    {"zh_CN", 2052},
      {"no_NO", 1044},       {"zh_TW.Big5", 1028}, {"nn_NO", 2068}, {"FR_ca", 3084},
      {"_DE", 1033},
  };
  for (const auto& [name, id] : cases) EXPECT_EQ(LanguageOfPosixName(name), id) << name;
}

TEST(LocaleTableTest, RowsAreOneALanguage) {
  for (const LocaleRow& row : Locales()) {
    EXPECT_EQ(row.code.size(), 3u) << row.id;
    for (const LocaleRow& other : Locales()) {
      const bool sameText = row.code == other.code || row.name == other.name ||
                            (!row.posixName.empty() && row.posixName == other.posixName);
      EXPECT_EQ(row.id == other.id || sameText, &row == &other) << row.id << ' ' << other.id;
    }
  }
  EXPECT_FALSE(FindLocale(33801));
}

}  // namespace dialwright
