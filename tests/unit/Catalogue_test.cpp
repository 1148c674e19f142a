#include "keymap/Catalogue.h"

#include <gtest/gtest.h>

#include <set>

#include "keymap/RowEditing.h"
#include "language/EnglishStrings.h"
#include "runner/World.h"

namespace dialwright {

namespace {

TEST(Catalogue, HasEveryActionOnceWithTextsThatExist) {
  std::set<std::string> tokens{"MSGMENU_HELP"};
  std::size_t rows = 1;
  const auto take = [&](std::span<const Action> actions, std::string_view prefix) {
    for (const Action& action : actions) {
      ++rows;
      tokens.insert(std::string(prefix) + std::string(action.name));
      for (const int number : {action.label, action.olderLabel, action.description.text,
                               action.description.olderText, action.description.note})
        EXPECT_TRUE(number == 0 || EnglishString(number)) << action.name << " " << number;
    }
  };
  take(MainMenuActions(), "");
  for (const PlaybackSection& section : PlaybackSections()) take(PlaybackActions(), section.prefix);
  take(AfterMessageActions(), "");
  take(GlobalActions(), "");
  EXPECT_EQ(tokens.size(), 147U);
  EXPECT_EQ(rows, 147U);

  Printer printer;
  World world(printer);
  for (const std::string& token : tokens)
    EXPECT_FALSE(FetchDescription(world.program, token).starts_with("Invalid")) << token;
}

TEST(RowEditing, KeyTexts) {
  struct {
    const char* text;
    bool number;
  } const cases[] = {
      {"", true},     {"123", true},  {"007", true},   {"+5", true},   {"1E1", true},
      {"1D1", true},  {"12a", false}, {"-5", false},   {"1.5", false}, {"5.", false},
      {"1,2", false}, {" 7 ", true},  {"ten", false},  {"1 2", false}, {"&HF", true},
      {"1E", false},  {"+", false},   {"1E-1", false},
  };
  for (const auto& c : cases) EXPECT_EQ(MyIsNumber(c.text), c.number) << c.text;
  EXPECT_FALSE(MyIsNumber("4", 5, 9));
  EXPECT_FALSE(MyIsNumber("10", 5, 9));
  EXPECT_TRUE(MyIsNumber("9", 5, 9));
}

TEST(RowEditing, KeyLengthLimits) {
  struct {
    const char* token;
    int single, several;
  } const cases[] = {
      {"MENU_NEW", 2, 3},
      {"HEADER_PAUSE", 1, 1},
      {"BODY_SPEEDUP", 1, 3},
      {"BODY_SLOWDOWN", 1, 3},
      {"FOOTER_RESET_VOLUME", 1, 3},
      {"HEADER_SPEED_NORMAL", 2, 3},
      {"header_pause", 1, 1},
      {"PAUSE", 2, 3},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(KeyLengthLimit(c.token, true), c.single) << c.token;
    EXPECT_EQ(KeyLengthLimit(c.token, false), c.several) << c.token;
  }
}

}  // namespace

}  // namespace dialwright
