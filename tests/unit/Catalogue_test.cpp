#include "keymap/Catalogue.h"

#include <gtest/gtest.h>

#include <set>

#include "language/EnglishStrings.h"
#include "transcript/World.h"

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

}  // namespace dialwright
