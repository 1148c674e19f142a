// Holds the built language libraries to the program's own table.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "../support/TempFolder.h"
#include "language/EnglishStrings.h"
#include "platform/standins/StringTableFile.h"
#include "text/Ansi.h"
#include "text/Text.h"

namespace dialwright {

/// What a translation keeps of a text, in one comparable form.
static std::string Frame(std::string_view text) {
  const std::size_t begin = std::min(text.find_first_not_of(' '), text.size());
  std::string frame(begin, '<');
  for (const char c : text)
    if (c == '&' || c == '\r' || c == '\n') frame += c;
  for (char place = '1'; place <= '9'; ++place)
    if (text.find(std::string("%") + place) != std::string_view::npos) frame += place;
  if (text.starts_with('[')) frame += text.substr(0, text.find(']') + 1);
  return frame.append(text.size() - (text.find_last_not_of(' ') + 1), '>');
}

struct LanguageLibrary : testing::TestWithParam<std::string> {
  void SetUp() override {
    const std::string path = DIALWRIGHT_PROGRAM_DIR "/Dialwright_" + GetParam() + ".dll";
    const auto file = StringTableFile::Parse(BytesOf(path));
    ASSERT_TRUE(file) << path;
    for (int number = 0; number <= 0xffff; ++number)
      if (auto text = file->Find(number)) texts.emplace(number, *std::move(text));
    for (const auto& [number, text] : texts) ASSERT_TRUE(EnglishString(number)) << number;
    // The texts that the form has always had may be left to the program.
    for (const auto& [number, text] : EnglishStrings())
      EXPECT_TRUE(texts.contains(number) || (GetParam() == "ENX" && number < 1300)) << number;
  }

  std::map<int, std::string> texts;
};

TEST_P(LanguageLibrary, KeepsWhatProceduresControlsAndReadersRelyOn) {
  constexpr std::string_view names[] = {
      "Merid",   "Merid Tessel", "Telhost",    "Varlo", "Dialwright", "Blank_Map_Template.HTM",
      "SubMenu", "SubMsgPlay",   "Live Reply", "HTML",  "4.0(5)",     "10%",
  };
  std::size_t same = 0;
  for (const auto& [number, text] : texts) {
    const std::string_view english = EnglishString(number).value();
    same += text == english;
    EXPECT_EQ(Frame(text), Frame(english)) << number << ' ' << text;
    EXPECT_TRUE(Trim(text).ends_with(':') || !Trim(english).ends_with(':')) << number << text;
    EXPECT_LT(Utf8ToUtf16(text).size() / 2, 1200u) << number;
    // Some languages put a no-break space in front of the sign.
    const std::string plain = ReplaceAll(text, "\u00a0%", "%");
    for (const auto name : names)
      EXPECT_TRUE(plain.find(name) != std::string::npos || english.find(name) == english.npos)
          << number << ' ' << name << ": " << text;
  }
  if (GetParam() == "ENU") {
    EXPECT_EQ(same, EnglishStrings().size());
  } else if (GetParam() != "ENX") {
    EXPECT_LE(same, texts.size() / 30) << "few names and short words stay as they are";
  }
}

TEST_P(LanguageLibrary, GoesWithItsOwnLabels) {
  constexpr std::pair<int, int> quotes[] = {{1064, 1029}, {1048, 1123}, {1191, 1123}};
  for (const auto& [message, label] : quotes) {
    if (GetParam() == "ENU" || !texts.contains(message)) continue;  // English quotes freely
    EXPECT_NE(texts.at(message).find(texts.at(label)), std::string::npos) << texts.at(message);
  }
  const auto mnemonic = [&](int number) {
    const std::string text(texts.contains(number) ? texts.at(number) : *EnglishString(number));
    return text.substr(text.find('&') + 1, 1);
  };
  EXPECT_NE(mnemonic(1036), mnemonic(1122)) << "of exit and save";
}

INSTANTIATE_TEST_SUITE_P(All, LanguageLibrary,
                         testing::Values("DEU", "FRA", "ESP", "ESN", "JPN", "ENU", "ENX"),
                         [](const auto& info) { return info.param; });

}  // namespace dialwright
