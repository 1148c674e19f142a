#include "platform/StringTableFile.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "transcript/PeWriter.h"

namespace dialwright {

static std::optional<std::string> Find(const std::string& library, int number) {
  const auto file = StringTableFile::parse(library);
  return file ? file->find(number) : std::nullopt;
}

TEST(StringTableFile, FindsTextsOfTheNeutralLanguageOrElseTheFirst) {
  const char16_t halves[] = {u'a', 0xd83d, u'b', 0xde00, 0};
  const std::string library =
      MakeStringLibrary({{0x407, {{1000, u"Taste"}, {1016, u"Ansage \U0001f4de "}}},
                         {0x40c, {{1000, u"touche"}, {1016, u"message"}, {65535, u"appel"}}},
                         {0, {{0, u"first"}, {1000, u"key"}, {1002, halves}}}});
  const std::pair<int, std::string> texts[] = {{0, "first"},
                                               {1000, "key"},
                                               {1002, "a\ufffdb\ufffd"},
                                               {1016, "Ansage \U0001f4de "},
                                               {65535, "appel"}};
  for (const auto& [number, text] : texts) EXPECT_EQ(Find(library, number), text) << number;
  for (const int number : {1, 1001, 1003, 5000, -1, -16, 65536})
    EXPECT_EQ(Find(library, number), std::nullopt) << number;
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
