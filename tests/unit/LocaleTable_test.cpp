#include "platform/LocaleTable.h"

#include <gtest/gtest.h>

#include <utility>

namespace dialwright {
namespace {

TEST(LocaleTableTest, NamesOfTheHost) {
  const std::pair<std::string_view, std::int32_t> cases[] = {
      {"de_DE.UTF-8", 1031}, {"de_AT@euro", 3079}, {"de", 1031},
      {"de_XX", 1031},       {"en_GB", 2057},      {"C", 1033},
      {"C.UTF-8", 1033},     {"POSIX", 1033},      {"", 1033},
      {"xx_YY", 1033},       {"es_ES", 3082},      {"es_AR", 11274},
      {"zh_TW.Big5", 1028},  {"zh_CN", 2052},      {"no_NO", 1044},
      {"nn_NO", 2068},       {"pt", 1046},         {"ko_KR", 1042},
      {"FR_ca", 3084},       {"_DE", 1033},
  };
  for (const auto& [name, id] : cases) EXPECT_EQ(LanguageOfPosixName(name), id) << name;
}

TEST(LocaleTableTest, RowsAreOneALanguage) {
  for (const LocaleRow& row : Locales()) {
    EXPECT_EQ(row.code.size(), 3u) << row.id;
    for (const LocaleRow& other : Locales()) {
      if (&other == &row) continue;
      EXPECT_NE(row.id, other.id);
      EXPECT_NE(row.code, other.code);
      EXPECT_NE(row.name, other.name);
      EXPECT_TRUE(row.posixName.empty() || row.posixName != other.posixName) << row.id;
    }
  }
  EXPECT_EQ(FindLocale(1031)->code, "DEU");
  EXPECT_FALSE(FindLocale(33801));
}

}  // namespace
}  // namespace dialwright
