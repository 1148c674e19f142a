// Holds the built language libraries to the program's own table.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "language/EnglishStrings.h"
#include "platform/StringTableFile.h"
#include "text/Ansi.h"

namespace dialwright {
namespace {

struct Library {
  const char* code;
  bool complete;
};

void PrintTo(const Library& library, std::ostream* out) { *out << library.code; }

std::optional<StringTableFile> Load(const std::string& code) {
  const std::string path = DIALWRIGHT_PROGRAM_DIR "/Dialwright_" + code + ".dll";
  std::ifstream in(path, std::ios::binary);
  return StringTableFile::parse({std::istreambuf_iterator<char>(in), {}});
}

/// A library's texts of the numbers that the program's table has.
std::map<int, std::string> Texts(const std::string& code) {
  std::map<int, std::string> texts;
  const auto file = Load(code);
  if (!file) return texts;
  for (const auto& row : EnglishStrings())
    if (auto text = file->find(row.number)) texts.emplace(row.number, *std::move(text));
  return texts;
}

std::size_t Utf16Units(std::string_view text) { return Utf8ToUtf16(text).size() / 2; }

std::size_t LeadingBlanks(std::string_view text) {
  return std::min(text.find_first_not_of(' '), text.size());
}
std::size_t TrailingBlanks(std::string_view text) {
  return text.size() - (text.find_last_not_of(' ') + 1);
}

/// What a translation keeps of a text, in one comparable form.
std::string Frame(std::string_view text) {
  std::string frame(LeadingBlanks(text), '<');
  for (const char c : text)
    if (c == '&' || c == '\r' || c == '\n') frame += c;
  if (text.starts_with('[')) frame += text.substr(0, text.find(']') + 1);
  return frame.append(TrailingBlanks(text), '>');
}

bool EndsWithColon(std::string_view text) { return text.ends_with(':') || text.ends_with(": "); }

class LanguageLibrary : public testing::TestWithParam<Library> {
 protected:
  const std::map<int, std::string> texts_ = Texts(GetParam().code);
};

TEST_P(LanguageLibrary, HoldsTheNumbersOfTheProgramsTable) {
  const auto file = Load(GetParam().code);
  ASSERT_TRUE(file);
  for (int number = 0; number <= 0xffff; ++number)
    EXPECT_TRUE(EnglishString(number) || !file->find(number)) << number;
  const std::size_t all = EnglishStrings().size();
  if (GetParam().complete) {
    for (const auto& row : EnglishStrings()) EXPECT_TRUE(texts_.contains(row.number)) << row.number;
  } else {
    EXPECT_TRUE(!texts_.empty() && texts_.size() < all) << texts_.size() << " of " << all;
  }
}

TEST_P(LanguageLibrary, KeepsWhatProceduresAndControlsRelyOn) {
  constexpr std::size_t kLookupBuffer = 1200;
  for (const auto& [number, text] : texts_) {
    const std::string_view english = EnglishString(number).value();
    EXPECT_EQ(Frame(text), Frame(english)) << number << ' ' << text;
    EXPECT_TRUE(EndsWithColon(text) || !EndsWithColon(english)) << number << ' ' << text;
    EXPECT_LT(Utf16Units(text), kLookupBuffer) << number;
    EXPECT_EQ(text.find("\ufffd"), std::string::npos) << number << ' ' << text;
  }
}

TEST_P(LanguageLibrary, KeepsTheNamesOfProductsFilesAndFeatures) {
  constexpr std::string_view kNames[] = {
      "Merid",     "Merid Tessel", "Telhost", "Varlo",  "Dialwright", "Blank_Map_Template.HTM",
      "SubMenu",   "SubMsgPlay",   "HTML",    "PDF",    "Live Reply", "FetchDescription",
      "Follow-Me", "COS",          "NDR",     "4.0(5)", "7.0(1)",     "10%",
  };
  for (const auto& [number, text] : texts_) {
    std::string plain = text;
    // Some languages put a no-break space in front of the sign.
    if (const auto at = plain.find("\u00a0%"); at != std::string::npos) plain.erase(at, 2);
    for (const auto name : kNames) {
      if (EnglishString(number).value().find(name) == std::string_view::npos) continue;
      EXPECT_NE(plain.find(name), std::string::npos) << number << ' ' << name << ": " << text;
    }
  }
}

TEST_P(LanguageLibrary, QuotesItsOwnLabels) {
  const struct { int message, label; } quotes[] = {{1064, 1029}, {1048, 1123}, {1191, 1123}};
  for (const auto& [message, label] : quotes) {
    if (!texts_.contains(message)) continue;
    ASSERT_TRUE(texts_.contains(label)) << label;
    EXPECT_NE(texts_.at(message).find(texts_.at(label)), std::string::npos) << texts_.at(message);
  }
}

TEST_P(LanguageLibrary, GivesExitAndSaveDifferentMnemonics) {
  const auto mnemonic = [&](int number) {
    const auto own = texts_.find(number);
    const std::string text{own != texts_.end() ? own->second : EnglishString(number).value()};
    return text.substr(text.find('&') + 1, 1);
  };
  EXPECT_NE(mnemonic(1036), mnemonic(1122));
}

TEST_P(LanguageLibrary, IsTranslated) {
  const auto same = std::ranges::count_if(
      texts_, [](const auto& entry) { return EnglishString(entry.first) == entry.second; });
  // A complete library shares a few names and short words; a partial one has no use for such.
  EXPECT_LE(same, GetParam().complete ? 6 : 0);
}

INSTANTIATE_TEST_SUITE_P(All, LanguageLibrary,
                         testing::Values(Library{"DEU", true}, Library{"FRA", true},
                                         Library{"ESP", true}, Library{"JPN", true},
                                         Library{"ENX", false}),
                         [](const auto& info) { return std::string(info.param.code); });

}  // namespace
}  // namespace dialwright
