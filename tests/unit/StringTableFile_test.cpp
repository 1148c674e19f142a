#include "platform/standins/StringTableFile.h"

#include <gtest/gtest.h>

#include <tuple>

#include "transcript/PeWriter.h"

namespace dialwright {

static std::optional<std::string> Find(const std::string& library, int number) {
  const auto file = StringTableFile::Parse(library);
  return file ? file->Find(number) : std::nullopt;
}

TEST(StringTableFile, FindsTextsOfTheNeutralLanguageOrElseTheFirst) {
  const std::string library =
      MakeStringLibrary({{0x407, {{1000, u"Taste"}, {1016, u"Ansage \U0001f4de "}}},
                         {0x40c, {{1000, u"touche"}, {1016, u"message"}, {65535, u"appel"}}},
                         {0, {{0, u"first"}, {1000, u"key"}}}});
  const std::pair<int, std::string> texts[] = {
      {0, "first"}, {1000, "key"}, {1016, "Ansage \U0001f4de "}, {65535, "appel"}};
  for (const auto& [number, text] : texts) EXPECT_EQ(Find(library, number), text) << number;
  for (const int number : {1, 1001, 5000, -1, -16, 65536})
    EXPECT_EQ(Find(library, number), std::nullopt) << number;
}

TEST(StringTableFile, HoldsNothingWhereItIsCutOrDamaged) {
  // Number 1001: its length stands behind the empty length of number 1000.
  const std::string whole = MakeStringLibrary({{1001, u"text"}});
  // Where the writer puts what a damaged library would have wrong.
  constexpr std::size_t section = 0x40 + 24 + 240, types = 0x200, data = types + 48 + 24;
  const std::tuple<const char*, std::size_t, std::string> damages[] = {
      {"section outside the file", section + 20, std::string("\0\xff\xff\xff", 4)},
      {"type back to the root", types + 20, std::string("\0\0\0\x80", 4)},
      {"data in front of the section", data, std::string("\xfc\x0f\0\0", 4)},
      {"data of enormous size", data + 4, "\xff\xff\xff\xff"},
      {"text longer than the data", data + 16 + 18, "\xff\xff"},
      {"earlier text longer than the data", data + 16, "\xff\xff"},
  };
  ASSERT_EQ(Find(whole, 1001), "text");
  for (std::size_t size = 0; size < whole.size(); ++size)
    EXPECT_EQ(Find(whole.substr(0, size), 1001), std::nullopt) << size;
  for (const auto& [what, offset, bytes] : damages) {
    std::string library = whole;
    library.replace(offset, bytes.size(), bytes);
    EXPECT_EQ(Find(library, 1001), std::nullopt) << what;
  }
}

}  // namespace dialwright
