// The tables and the rules of key maps.

#include <gtest/gtest.h>

#include <set>
#include <tuple>

#include "keymap/Catalogue.h"
#include "language/EnglishStrings.h"
#include "transcript/World.h"
#include "validation/DerivedKeyLists.h"
#include "validation/KeyConflicts.h"

namespace dialwright {

TEST(Catalogue, HasEveryActionOnceWithTextsThatExist) {
  Printer printer;
  World world(printer);
  std::set<std::string> tokens;
  const auto take = [&](std::span<const Action> actions, std::string_view prefix) {
    for (const Action& action : actions) {
      const std::string token = std::string(prefix) + std::string(action.name);
      EXPECT_TRUE(tokens.insert(token).second) << token;
      EXPECT_FALSE(FetchDescription(world.program, token).starts_with("Invalid")) << token;
      for (const int number : {action.label, action.olderLabel, action.description.text,
                               action.description.olderText, action.description.note})
        EXPECT_TRUE(number == 0 || EnglishString(number)) << token << " " << number;
    }
  };
  take(MainMenuActions(), "");
  for (const PlaybackSection& section : PlaybackSections()) take(PlaybackActions(), section.prefix);
  take(AfterMessageActions(), "");
  take(GlobalActions(), "");
  EXPECT_EQ(tokens.size(), 146U);
}

TEST(DerivedKeyLists, FromAKeyList) {
  const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
      {"1,,77,12,99,#,333,", "245680*", "7,9", "77,12,99"},
      {"**,#1,", "1234567890", "*", "**,#1"},
      {" 77 ,", "1234567890*#", "7", "77"},
      {"77,77,4,4,", "12356890*#", "7,7", "77,77"},
  };
  for (const auto& [keys, inactive, doubles, extended] : cases) {
    EXPECT_EQ(strGetDoubleKeys(keys), doubles) << keys;
    EXPECT_EQ(strGetExtendedDoubleKeys(keys), extended) << keys;
    EXPECT_EQ(strGetInactiveKeys(keys), inactive) << keys;
  }
}

TEST(KeyConflicts, FirstDigitOfATwoKeySequence) {
  const std::tuple<const char*, ConflictKeys, bool> cases[] = {
      {"1,12,", {"1"}, true},   {"2,12,", {"2"}, false}, {"9,99,", {"", "9"}, true},
      {"9,999,", {"9"}, false}, {" 9* ,", {"9"}, true},  {"12,", {""}, false},
      {"aB,", {"A"}, true},
  };
  for (const auto& [list, keys, conflict] : cases)
    EXPECT_EQ(bKeyConflicts(list, keys), conflict) << list;
}

}  // namespace dialwright
