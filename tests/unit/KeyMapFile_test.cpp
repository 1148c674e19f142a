#include "beside/KeyMapFile.h"

#include <gtest/gtest.h>

#include "language/EnglishStrings.h"

namespace dialwright {
namespace {

/// What a user reads of a text that is no key map file; empty if it is one.
std::string FaultOf(std::string_view bytes) {
  struct English : Messages {
    MsgBoxAnswer MsgBox(std::string_view, MsgBoxButtons, std::string_view) override { return {}; }
    std::string mymyLoadString(int number) override {
      return std::string(EnglishString(number).value_or("no text"));
    }
  } strings;
  try {
    ParseKeyMap(bytes);
    return {};
  } catch (const KeyMapFault& fault) {
    return FaultText(strings, fault);
  }
}

std::string Filed(std::string_view rest) {
  return R"({"format": "dialwright key map", "version": 1, )" + std::string(rest) + "}";
}

TEST(KeyMapFile, IsTheSameBytesAsThePage) {
  KeyMap map{"Merid", "7.0(2.0)", 1, {}, {}};
  map.menus[0] = {{"MENU_NEW", "1", true}, {"MENU_HELP", "0", false}};
  map.menus[1] = {{"HEADER_REWIND", "7", {}}};
  map.setup = {{"chkMAIN_GREETINGS", true}};
  const std::string page = R"page({
  "format": "dialwright key map",
  "version": 1,
  "edition": "Merid",
  "server": "7.0(2.0)",
  "slot": 1,
  "menus": {
    "main": [
      {"action": "MENU_NEW", "key": "1", "voiced": true},
      {"action": "MENU_HELP", "key": "0", "voiced": false}
    ],
    "header": [
      {"action": "HEADER_REWIND", "key": "7"}
    ],
    "body": [], "footer": [], "after": [], "globals": []
  },
  "setup": {"chkMAIN_GREETINGS": true}
}
)page";
  EXPECT_EQ(KeyMapText(map), page);
  EXPECT_EQ(KeyMapText(ParseKeyMap(page)), page);
  std::string spaced = "\xEF\xBB\xBF";
  for (const char c : page)
    if (c != '\n') spaced += c == ',' ? std::string(" ,\r\n\t") : std::string(1, c);
  EXPECT_EQ(KeyMapText(ParseKeyMap(spaced)), page);
}

TEST(KeyMapFile, PassesOverWhatItDoesNotKnowAndWhatIsMissing) {
  for (const std::string_view rest :
       {R"("x": [[[{}]]])", R"("menus": {"other": 1})", R"("setup": {"chkOther": "?"})",
        R"("menus": {"main": [{"action": "A"}, {"action": "B", "colour": 1}]})",
        R"("menus": {"header": [{"action": "A", "voiced": "no matter"}]})",
        R"("menus": {"main": [{"action": "A", "key": "ab c!"}]})"})
    EXPECT_EQ(FaultOf(Filed(rest)), "") << rest;
  const KeyMap map = ParseKeyMap(Filed(R"("menus": {"after": [{"action": "A"}]})"));
  EXPECT_EQ(map.menus[4], (KeyMapMenu{{"A", {}, {}}}));
  EXPECT_FALSE(map.setup);
}

TEST(KeyMapFile, IsRefusedWithThePlaceOfItsFault) {
  const std::string longest(126, '1');
  const auto row = [](const std::string& members) {
    return Filed(R"("menus": {"main": [)" + members + "]}");
  };
  const std::pair<std::string, std::string> rows[] = {
      {"", "line 1, column 1"},
      {"{\n  \"format\": tru}", "line 2, column 16"},
      {"\xFF\xFE{", "line 1, column 1"},
      {Filed(R"("x": 1)").substr(0, 20), "line 1, column 21"},
      {std::string(500'000, '['), "line 1, column 500001"},
      {std::string(longestKeyMapFile + 1, ' '), "larger than 1 MB"},
      {"[]", "no key map file"},
      {"{\"format\": \"other\", \"version\": 1}", "no key map file"},
      {R"({"format": "dialwright key map", "version": 2})",
       "version 2; this Dialwright reads version 1"},
      {R"({"format": "dialwright key map", "version": "1"})", "version: "},
      {Filed(R"("menus": [])"), "menus: "},
      {Filed(R"("slot": "1")"), "slot: "},
      {Filed(R"("menus": {"main": {}})"), "menus, main: "},
      {Filed(R"("setup": {"chkMAIN_GREETINGS": 1})"), "setup, chkMAIN_GREETINGS: "},
      {row(R"({"action": "A"}, 7)"), "main, 2: "},
      {row(R"({"key": "1"})"), "main, 1, action: "},
      {row(R"({"action": "A", "key": 1})"), "main, A, key: "},
      {row(R"({"action": "A", "key": null})"), "main, A, key: "},
      {row(R"({"action": "A", "voiced": "true"})"), "main, A, voiced: "},
      {row(R"({"action": "A"}, {"action": "A"})"), "main, A: the action stands there twice"},
      {row(R"({"action": "A", "key": "1\t"})"), "main, A: the key holds a character"},
      {row(R"({"action": "A", "key": "\""})"), "main, A: the key holds a character"},
      {row(R"({"action": "A", "key": "é"})"), "main, A: the key holds a character"},
      {row(R"({"action": "A", "key": ")" + longest + "1\"}"),
       "main, A: the key is longer than 126"},
  };
  for (const auto& [bytes, place] : rows)
    EXPECT_NE(FaultOf(bytes).find(place), std::string::npos)
        << bytes.substr(0, 99) << ": " << FaultOf(bytes);
  EXPECT_EQ(FaultOf(row(R"({"action": "A", "key": ")" + longest + "\"}")), "");
}

}  // namespace
}  // namespace dialwright
