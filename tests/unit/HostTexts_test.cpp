#include <gtest/gtest.h>

#include <utility>

#include "platform/CommandLine.h"
#include "platform/LocaleTable.h"

namespace dialwright {

using Words = std::vector<std::string>;

TEST(CommandLineTest, Splitting) {
  const std::pair<std::string_view, Words> cases[] = {
      {"  \t ", {}},
      {" java  -cp\tx ", {"java", "-cp", "x"}},
      {R"(Explorer "C:\a b\c.htm")", {"Explorer", R"(C:\a b\c.htm)"}},
      {R"("C:\Program Files\x\" y)", {R"(C:\Program Files\x\)", "y"}},
      {R"(p "" x)", {"p", "", "x"}},
      {R"(p a"b c"d)", {"p", "ab cd"}},
      {R"(p a\b\\c)", {"p", R"(a\b\\c)"}},
      {R"(p "a\\" b)", {"p", R"(a\)", "b"}},
      {R"(p \\\"x)", {"p", R"(\"x)"}},
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
