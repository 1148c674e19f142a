// The names and codes of languages against the system's own, and the libraries that the tests make
// against its loader.

#include <gtest/gtest.h>
#include <windows.h>

#include <map>

#include "transcript/PeWriter.h"
#include "TempFolder.h"
#include "language/modLocalize.h"
#include "platform/LanguagesWin32.h"
#include "platform/LocaleTable.h"
#include "platform/StringTableFile.h"
#include "platform/Win32Text.h"

namespace dialwright {
namespace {

constexpr int abbreviatedLanguageName = 3;
constexpr LCTYPE englishDisplayName = 0x72;

std::string DisplayName(std::int32_t language) {
  wchar_t name[256] = {};
  GetLocaleInfoW(static_cast<LCID>(language), englishDisplayName, name, 256);
  return NarrowText(name);
}

// What the table calls as Windows servers do, and the system that the tests run under by a newer
// list.
const std::map<std::int32_t, std::string> newerNames = {
    {1027, "Catalan (Spain)"},
    {1029, "Czech (Czechia)"},
    {1034, "Spanish (Spain)"},
    {1044, "Norwegian Bokm\u00E5l (Norway)"},
    {1069, "Basque (Spain)"},
    {2068, "Norwegian Nynorsk (Norway)"},
    {3076, "Chinese (Traditional, Hong Kong SAR China)"},
    {3082, "Spanish (Spain)"},
    {11273, "English (Trinidad & Tobago)"},
};

// The libraries for Hong Kong have always been called ZHT, which is not the system's code for it:
// there the choice of that library takes hold of none.
const std::map<std::int32_t, std::string> otherCodes = {{3076, "ZHH"}};

std::string Expected(const std::map<std::int32_t, std::string>& others, std::int32_t language,
                     std::string_view usual) {
  const auto other = others.find(language);
  return other == others.end() ? std::string(usual) : other->second;
}

TEST(LanguagesTest, CodesAndNames) {
  LanguagesWin32 theirs;
  for (const LocaleRow& row : Locales()) {
    EXPECT_EQ(theirs.GetLocaleInfoA(row.id, abbreviatedLanguageName).value_or("none"),
              Expected(otherCodes, row.id, row.code));
    EXPECT_EQ(DisplayName(row.id), Expected(newerNames, row.id, row.name)) << row.id;
  }
}

TEST(LanguagesTest, IdsOfCodes) {
  LanguagesWin32 theirs;
  int known = 0;
  for (const LocaleRow& row : Locales()) {
    const std::int32_t id = GetLanguageId(row.code);
    if (id == 1033 && row.id != 1033) continue;
    EXPECT_EQ(theirs.GetLocaleInfoA(id, abbreviatedLanguageName).value_or("none"),
              Expected(otherCodes, id, row.code));
    ++known;
  }
  EXPECT_GT(known, 40);
}

TEST(LanguagesTest, LibrariesThatTheTestsMake) {
  const TempFolder folder;
  const StringTable strings = {{0, u"first"},
                                     {15, u"end of block"},
                                     {16, u"next block"},
                                     {1024, u"\u65E5\u672C"},
                                     {1237, std::u16string(2000, u'x')},
                                     {65535, u"last\r\n"}};
  for (const PeFormat format : {PeFormat::pe32, PeFormat::pe32Plus}) {
    for (const std::uint16_t language : std::initializer_list<std::uint16_t>{0, 1031, 1041}) {
      const std::string bytes = MakeStringLibrary(strings, format, language);
      folder.write("library.dll", bytes);
      LanguagesWin32 theirs;
      const LibraryHandle library =
          theirs.LoadLibraryExW((folder / "library.dll").make_preferred().string(), 3);
      ASSERT_NE(library, 0);
      const auto ours = StringTableFile::parse(bytes);
      ASSERT_TRUE(ours);
      for (int number = 0; number <= 0xFFFF; ++number) {
        ASSERT_EQ(ours->find(number).value_or(""), theirs.LoadStringW(library, number, 5000))
            << number;
      }
      EXPECT_EQ(theirs.LoadStringW(library, 1237, 1200).size(), 1200u);
      theirs.FreeLibrary(library);
    }
  }
}

}  // namespace
}  // namespace dialwright
