#include "platform/StringTableFile.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "../support/PeWriter.h"

namespace dialwright {
namespace {

using test::MakeStringLibrary;
using test::PeFormat;

std::optional<std::string> Find(const std::string& library, int number) {
  const auto file = StringTableFile::parse(library);
  return file ? file->find(number) : std::nullopt;
}

TEST(StringTableFile, FindsTextsByNumberInBothFormats) {
  std::u16string halves = u"a?b?";
  halves[1] = 0xd83d;
  halves[3] = 0xde00;
  const test::StringTable strings = {
      {0, u"first of all"},    {15, u"last of a block"},  {16, u"first of the next"},
      {1024, u"\u00dcber"},    {1040, u"\u97f3\u58f0"},   {1041, u"\U0001f4de"},
      {1042, halves},          {1093, u" blank around "}, {1200, std::u16string(1200, u'x')},
      {65535, u"last of all"},
  };
  const struct {
    int number;
    std::optional<std::string> text;
  } cases[] = {
      {0, "first of all"},
      {1, std::nullopt},
      {15, "last of a block"},
      {16, "first of the next"},
      {17, std::nullopt},
      {1024, "\u00dcber"},
      {1040, "\u97f3\u58f0"},
      {1041, "\U0001f4de"},
      {1042, "a\ufffdb\ufffd"},
      {1093, " blank around "},
      {1200, std::string(1200, 'x')},
      {5000, std::nullopt},
      {65535, "last of all"},
      {-1, std::nullopt},
      {-16, std::nullopt},
      {65536, std::nullopt},
  };
  for (const auto format : {PeFormat::pe32, PeFormat::pe32Plus})
    for (const auto& one : cases)
      EXPECT_EQ(Find(MakeStringLibrary(strings, format, 0x407), one.number), one.text)
          << one.number << (format == PeFormat::pe32 ? " PE32" : " PE32+");
}

TEST(StringTableFile, TakesTheNeutralLanguageOrElseTheFirst) {
  const test::StringTable german = {{1000, u"Taste"}, {1016, u"Ansage"}};
  const test::StringTable french = {{1000, u"touche"}, {1016, u"message"}, {1032, u"appel"}};
  const test::StringTable neutral = {{1000, u"key"}};
  const std::string library =
      MakeStringLibrary({{0x407, german}, {0x40c, french}, {0, neutral}}, PeFormat::pe32);
  EXPECT_EQ(Find(library, 1000), "key");
  EXPECT_EQ(Find(library, 1016), "Ansage");
  EXPECT_EQ(Find(library, 1032), "appel");
}

TEST(StringTableFile, RefusesWhatIsNoLibrary) {
  EXPECT_FALSE(StringTableFile::parse(""));
  EXPECT_FALSE(StringTableFile::parse("MZ"));
  EXPECT_FALSE(StringTableFile::parse(std::string(4096, '\0')));
  EXPECT_FALSE(
      StringTableFile::parse("\x7f"
                             "ELF" +
                             std::string(4096, '\1')));
}

TEST(StringTableFile, ATruncatedLibraryHoldsNothing) {
  const std::string library = MakeStringLibrary({{1000, u"text"}});
  ASSERT_EQ(Find(library, 1000), "text");
  for (std::size_t size = 0; size < library.size(); ++size)
    EXPECT_EQ(Find(library.substr(0, size), 1000), std::nullopt) << size;
}

// Where the writer puts what a damaged library would have wrong.
constexpr std::size_t kHeader = 0x40;
constexpr std::size_t kOptional = kHeader + 24;
constexpr std::size_t kSection = kOptional + 240;
constexpr std::size_t kTypes = 0x200;
constexpr std::size_t kBlocks = kTypes + 24;
constexpr std::size_t kLanguages = kBlocks + 24;
constexpr std::size_t kData = kLanguages + 24;
constexpr std::size_t kBlock = kData + 16;

TEST(StringTableFile, HoldsNothingWhereALinkIsDamaged) {
  // Number 1001: its length stands behind the empty length of number 1000, block 1000/16 + 1.
  const std::string whole = MakeStringLibrary({{1001, u"text"}});
  const struct {
    const char* what;
    std::size_t offset;
    std::uint32_t value;
    std::size_t width = 4;
  } damages[] = {
      {"header far outside", 0x3c, 0xffffffff},
      {"header at the end", 0x3c, 0x3fe},
      {"no signature", kHeader, 0x4551},
      {"sections outside", kHeader + 6, 0xffff, 2},
      {"no sections", kHeader + 6, 0, 2},
      {"optional header outside", kHeader + 20, 0xffff, 2},
      {"optional header without resources", kHeader + 20, 0x80, 2},
      {"neither format", kOptional, 0x107, 2},
      {"two data directories", kOptional + 108, 2},
      {"no resources", kOptional + 128, 0},
      {"resources outside", kOptional + 128, 0xfffffff0},
      {"section elsewhere in memory", kSection + 12, 0x2000},
      {"section larger than the file", kSection + 16, 0x400},
      {"section outside the file", kSection + 20, 0xffffff00},
      {"too many types", kTypes + 12, 0xffffffff},
      {"no types", kTypes + 14, 0, 2},
      {"another type", kTypes + 16, 5},
      {"a named type", kTypes + 16, 0x80000006},
      {"type without directory", kTypes + 20, 24},
      {"type back to the root", kTypes + 20, 0x80000000},
      {"blocks outside", kTypes + 20, 0xffffffff},
      {"another block", kBlocks + 16, 62},
      {"block back to the root", kBlocks + 20, 0x80000000},
      {"languages outside", kBlocks + 20, 0x80000200},
      {"no language", kLanguages + 14, 0, 2},
      {"language with a directory", kLanguages + 20, 0x80000000},
      {"description outside", kLanguages + 20, 0x1f9},
      {"data outside", kData, 0x7fffffff},
      {"data in front of the section", kData, 0xffc},
      {"data wider than the section", kData + 4, 0x1a9},
      {"data of enormous size", kData + 4, 0xffffffff},
      {"data too narrow for the text", kData + 4, 27},
      {"text longer than the data", kBlock + 2 * 9, 0xffff, 2},
      {"earlier text longer than the data", kBlock, 0xffff, 2},
  };
  ASSERT_EQ(Find(whole, 1001), "text");
  for (const auto& damage : damages) {
    std::string library = whole;
    for (std::size_t i = 0; i < damage.width; ++i)
      library.at(damage.offset + i) = static_cast<char>(damage.value >> 8 * i & 0xff);
    ASSERT_NE(library, whole) << damage.what;
    EXPECT_EQ(Find(library, 1001), std::nullopt) << damage.what;
  }
}

}  // namespace
}  // namespace dialwright
