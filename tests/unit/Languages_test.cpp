// Holds the built language libraries to the program's own table.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <string_view>

#include "language/EnglishStrings.h"
#include "platform/StringTableFile.h"
#include "text/Ansi.h"
#include "text/Text.h"

namespace dialwright {

/// What a translation keeps of a text, in one comparable form.
static std::string Frame(std::string_view text) {
  const std::size_t begin = std::min(text.find_first_not_of(' '), text.size());
  std::string frame(begin, '<');
  for (const char c : text)
    if (c == '&' || c == '\r' || c == '\n') frame += c;
  if (text.starts_with('[')) frame += text.substr(0, text.find(']') + 1);
  return frame.append(text.size() - (text.find_last_not_of(' ') + 1), '>');
}

struct LanguageLibrary : testing::TestWithParam<std::string> {
  void SetUp() override {
    const std::string path = DIALWRIGHT_PROGRAM_DIR "/Dialwright_" + GetParam() + ".dll";
    std::ifstream in(path, std::ios::binary);
    const auto file = StringTableFile::parse({std::istreambuf_iterator<char>(in), {}});
    ASSERT_TRUE(file) << path;
    for (int number = 0; number <= 0xffff; ++number)
      if (auto text = file->find(number)) texts.emplace(number, *std::move(text));
    for (const auto& [number, text] : texts) ASSERT_TRUE(EnglishString(number)) << number;
  }

  const bool complete = GetParam() != "ENX";
  std::map<int, std::string> texts;
};

TEST_P(LanguageLibrary, HoldsTheNumbersOfTheProgramsTable) {
  EXPECT_FALSE(texts.empty());
  EXPECT_EQ(texts.size() == EnglishStrings().size(), complete);
  const auto same = std::ranges::count_if(
      texts, [](const auto& entry) { return EnglishString(entry.first) == entry.second; });
  // A complete library shares a few names and short words; a partial one has no use for such.
  EXPECT_LE(same, complete ? 6 : 0);
}

TEST_P(LanguageLibrary, KeepsWhatProceduresControlsAndReadersRelyOn) {
  constexpr std::size_t kLookupBuffer = 1200;
  constexpr std::string_view kNames[] = {
      "Merid",     "Merid Tessel", "Telhost", "Varlo",  "Dialwright", "Blank_Map_Template.HTM",
      "SubMenu",   "SubMsgPlay",   "HTML",    "PDF",    "Live Reply", "FetchDescription",
      "Follow-Me", "COS",          "NDR",     "4.0(5)", "7.0(1)",     "10%",
  };
  for (const auto& [number, text] : texts) {
    const std::string_view english = EnglishString(number).value();
    EXPECT_EQ(Frame(text), Frame(english)) << number << ' ' << text;
    EXPECT_TRUE(Trim(text).ends_with(':') || !Trim(english).ends_with(':')) << number << text;
    EXPECT_LT(Utf8ToUtf16(text).size() / 2, kLookupBuffer) << number;
    EXPECT_EQ(text.find("\ufffd"), std::string::npos) << number << ' ' << text;
    // Some languages put a no-break space in front of the sign.
    const std::string plain = ReplaceAll(text, "\u00a0%", "%");
    for (const auto name : kNames)
      EXPECT_TRUE(plain.find(name) != std::string::npos || english.find(name) == english.npos)
          << number << ' ' << name << ": " << text;
  }
}

TEST_P(LanguageLibrary, GoesWithItsOwnLabels) {
  constexpr std::pair<int, int> quotes[] = {{1064, 1029}, {1048, 1123}, {1191, 1123}};
  for (const auto& [message, label] : quotes) {
    if (!texts.contains(message)) continue;
    EXPECT_NE(texts.at(message).find(texts.at(label)), std::string::npos) << texts.at(message);
  }
  const auto mnemonic = [&](int number) {
    const std::string text(texts.contains(number) ? texts.at(number) : *EnglishString(number));
    return text.substr(text.find('&') + 1, 1);
  };
  EXPECT_NE(mnemonic(1036), mnemonic(1122)) << "of exit and save";
}

INSTANTIATE_TEST_SUITE_P(All, LanguageLibrary, testing::Values("DEU", "FRA", "ESP", "JPN", "ENX"),
                         [](const auto& info) { return info.param; });

}  // namespace dialwright
