#include "platform/StringTableFile.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <tuple>

#include "transcript/PeWriter.h"

namespace dialwright {


static std::optional<std::string> Find(const std::string& library, int number) {
  const auto file = StringTableFile::parse(library);
  return file ? file->find(number) : std::nullopt;
}

TEST(StringTableFile, FindsTextsByNumberInBothFormats) {
  const char16_t halves[] = {u'a', 0xd83d, u'b', 0xde00, 0};
  const std::tuple<int, std::u16string, std::string> texts[] = {
      {0, u"first", "first"},           {15, u"end of a block", "end of a block"},
      {16, u"the next", "the next"},    {1041, u" \u00dcber \U0001f4de ", " \u00dcber \U0001f4de "},
      {1042, halves, "a\ufffdb\ufffd"}, {1200, std::u16string(1200, u'x'), std::string(1200, 'x')},
      {65535, u"last", "last"},
  };
  StringTable strings;
  for (const auto& [number, utf16, utf8] : texts) strings[number] = utf16;
  for (const auto format : {PeFormat::pe32, PeFormat::pe32Plus}) {
    const std::string library = MakeStringLibrary(strings, format, 0x407);
    for (const auto& [number, utf16, utf8] : texts) EXPECT_EQ(Find(library, number), utf8);
    for (const int number : {1, 17, 5000, -1, -16, 65536})
      EXPECT_EQ(Find(library, number), std::nullopt) << number;
  }
}

TEST(StringTableFile, TakesTheNeutralLanguageOrElseTheFirst) {
  const std::string library =
      MakeStringLibrary({{0x407, {{1000, u"Taste"}, {1016, u"Ansage"}}},
                         {0x40c, {{1000, u"touche"}, {1016, u"message"}, {1032, u"appel"}}},
                         {0, {{1000, u"key"}}}});
  EXPECT_EQ(Find(library, 1000), "key");
  EXPECT_EQ(Find(library, 1016), "Ansage");
  EXPECT_EQ(Find(library, 1032), "appel");
}

// Where the writer puts what a damaged library would have wrong.
constexpr std::size_t kHeader = 0x40;
constexpr std::size_t kOptional = kHeader + 24, kSection = kOptional + 240, kTypes = 0x200;
constexpr std::size_t kLanguages = kTypes + 48, kData = kLanguages + 24, kBlock = kData + 16;

TEST(StringTableFile, HoldsNothingWhereItIsCutOrDamaged) {
  // Number 1001: its length stands behind the empty length of number 1000, block 1000/16 + 1.
  const std::string whole = MakeStringLibrary({{1001, u"text"}});
  const struct {
    const char* what;
    std::size_t offset;
    std::uint32_t value;
    std::size_t width = 4;
  } damages[] = {
      {"no signature", kHeader, 0x4551},
      {"optional header without resources", kHeader + 20, 0x80, 2},
      {"neither format", kOptional, 0x107, 2},
      {"two data directories", kOptional + 108, 2},
      {"no resources", kOptional + 128, 0},
      {"section elsewhere in memory", kSection + 12, 0x2000},
      {"section outside the file", kSection + 20, 0xffffff00},
      {"type without directory", kTypes + 20, 24},
      {"type back to the root", kTypes + 20, 0x80000000},
      {"language with a directory", kLanguages + 20, 0x80000000},
      {"data outside", kData, 0x7fffffff},
      {"data in front of the section", kData, 0xffc},
      {"data of enormous size", kData + 4, 0xffffffff},
      {"data too narrow for the text", kData + 4, 27},
      {"text longer than the data", kBlock + 2 * 9, 0xffff, 2},
      {"earlier text longer than the data", kBlock, 0xffff, 2},
  };
  ASSERT_EQ(Find(whole, 1001), "text");
  for (std::size_t size = 0; size < whole.size(); ++size)
    EXPECT_EQ(Find(whole.substr(0, size), 1001), std::nullopt) << size;
  for (const auto& damage : damages) {
    std::string library = whole;
    for (std::size_t i = 0; i < damage.width; ++i)
      library.at(damage.offset + i) = static_cast<char>(damage.value >> 8 * i & 0xff);
    EXPECT_EQ(Find(library, 1001), std::nullopt) << damage.what;
  }
}

}  // namespace dialwright
