// The tables and the rules of key maps.

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "keymap/Catalogue.h"
#include "language/EnglishStrings.h"
#include "shell/frmMain.h"
#include "text/Text.h"
#include "transcript/Transcript.h"
#include "transcript/World.h"
#include "transcript/WorldSteps.h"
#include "validation/DerivedKeyLists.h"
#include "validation/KeyConflicts.h"
#include "validation/SaveRules.h"

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

/// Each action with the string numbers of its description: of the text and, behind a plus sign, of
/// its note; behind a slash those on a server whose goto actions keep to saved messages.
constexpr std::string_view descriptions =
    "MENU_NEW 1139 MENU_SEND 1140 MENU_SAVED 1141 MENU_SETUP 1142 "
    "MENU_MSG_LOCATOR 1138+1093 MENU_HELP 1104 MENU_REPEAT 1105 MENU_EXIT 1041 "
    "MENU_DISABLE_TOUCH_OR_SAY 1210 MENU_SUBSCRIBER_SYSTEM_TRANSFER 1211 "
    "MENU_GREETINGS_ADMINISTRATOR 1212 MENU_BROADCAST_MESSAGE_ADMIN 1213 "
    "MENU_FOLLOW_ME_HERE 1225 MENU_FOLLOW_ME_HOME 1226 MENU_FOLLOW_ME_MOBILE 1227 "
    "MENU_FOLLOW_ME_CANCEL 1228 BODY_EXIT 1143 BODY_SLOWDOWN 1136/1136+1092 "
    "BODY_SPEEDUP 1137/1137+1092 BODY_SPEED_NORMAL 1216 BODY_REWIND 1072 "
    "MSGMENU_PREVIOUS 1071 BODY_PAUSE 1102+1092 BODY_FORWARD 1073 "
    "BODY_SKIP_TO_START_OF_HEADER 1075 BODY_SKIP_TO_START_OF_MESSAGE 1076 "
    "BODY_SKIP_TO_START_OF_FOOTER 1074 BODY_SKIP_TO_AFTER_MSG_MENU 1067 "
    "BODY_PROPERTIES 1107 MSGMENU_PROPERTIES 1107 BODY_RETURN_CALL 1062+1091 "
    "MSGMENU_LIVE_REPLY 1062+1091 BODY_REPLY 1113+1096 MSGMENU_REPLY 1113+1096 "
    "BODY_REPLY_ALL 1112 MSGMENU_REPLY_ALL 1112 BODY_OPERATOR 1144 MSGMENU_OPERATOR 1144 "
    "BODY_SKIP_MARK_ASIS 1134 MSGMENU_NEXT 1134 BODY_SKIP_MARK_NEW 1133 "
    "BODY_SKIP_MARK_SAVED 1132 BODY_DELETE 1027 MSGMENU_DELETE 1027 "
    "BODY_ONEKEY_VOLUME 1025+1094 BODY_RESET_VOLUME 1052+1094 "
    "BODY_DECREASE_VOLUME 1051+1094 BODY_INCREASE_VOLUME 1050+1094 MSGMENU_HELP 1108 "
    "MSGMENU_REPLAY 1106 MSGMENU_SAVE 1082 MSGMENU_FORWARD 1008 BODY_FORWARD_MSG 1008 "
    "MSGMENU_MARK_NEW 1081 MSGMENU_FAX 1128+1095 MSGMENU_GOTO_ENABLE 1189/1047+1097 "
    "BODY_GOTO_ENABLE 1189/1047+1097 MSGMENU_GOTO_JUMPBACK 1190/1049+1097 "
    "BODY_GOTO_JUMPBACK 1190/1049+1097 MSGMENU_GOTO_JUMPFORWARD 1191/1048+1097 "
    "BODY_GOTO_JUMPFORWARD 1191/1048+1097 MSGMENU_EXIT 1040 BODY_FF_TO_END 1005 "
    "BODY_FF_TO_START 1006 BODY_GOTO_FIRST 1180 MSGMENU_GOTO_FIRST 1180 BODY_GOTO_LAST 1181 "
    "MSGMENU_GOTO_LAST 1181 BODY_TOGGLE_URGENCY 1182 MSGMENU_TOGGLE_URGENCY 1182 "
    "MSGMENU_INSTANT_MESSAGE 1193 BODY_TRANSCRIBE_MESSAGE 1219 MSGMENU_TRANSCRIBE 1219 "
    "GLOBAL_SPEED_INCREASE 1232 GLOBAL_SPEED_DECREASE 1233 BODY_FORWARD_MSG_NO_INTROS 1237 "
    "MSGMENU_FORWARD_MSG_NO_INTROS 1237 ";

TEST(Catalogue, DescriptionsByNumber) {
  Printer printer;
  World world(printer);
  Program& program = world.program;
  // A library in which each text is its own number.
  std::vector<std::string> numbers;
  for (int number = 1000; number < 1240; ++number)
    numbers.push_back(std::to_string(number) + " " + std::to_string(number));
  numbers.push_back("1300 " + std::string(1300, 'x'));
  MakeLibrary(world, {"library", R"(C:\Dialwright\Dialwright_DEU.dll)"}, numbers);
  program.language.lCurrentLanguage = 1031;
  program.language.InitalizeLanguages();
  EXPECT_EQ(program.mymyLoadString(1300).size(), 1200U) << "what the buffer of a text holds";

  const std::vector<std::string> words = SplitWords(descriptions);
  ASSERT_EQ(words.size(), 2 * 77U);
  for (std::size_t i = 0; i < words.size(); i += 2) {
    const std::size_t slash = std::min(words[i + 1].find('/'), words[i + 1].size());
    const std::string newer = words[i + 1].substr(0, slash);
    const std::string older = slash == words[i + 1].size() ? newer : words[i + 1].substr(slash + 1);
    for (const auto& [build, expected] : {std::pair(std::int16_t{36}, older), {37, newer}}) {
      program.server.currentVersion = {false16, 4, 2, 0, build, ""};
      EXPECT_EQ(FetchDescription(program, words[i]), ReplaceAll(expected, "+", "\r\n"))
          << words[i] << " on build " << build;
    }
  }
}

/// A box of the setup tab by itself: whether clicking it marks the form changed.
TEST(SetupOptions, BoxesThatMarkAChange) {
  for (const auto& [name, marks] : {std::pair("chkMAIN_GREETINGS", true),
                                    {"chkMAIN_MESSAGE_SETTINGS", true},
                                    {"chkMAIN_PERSONAL_SETTINGS", true},
                                    {"chkMAIN_TRANSFER", false},
                                    {"chkMESSAGE_NOTIFICATION", true},
                                    {"chkMESSAGE_FAX", true},
                                    {"chkMESSAGE_MENU_STYLE", true},
                                    {"chkMESSAGE_PRIVATE_LISTS", true},
                                    {"chkGenerateHelp", true},
                                    {"chkGeneratePDF", true}}) {
    Printer printer;
    World world(printer);
    frmMain& form = *world.program.main;
    auto* box = dynamic_cast<CheckBox*>(form.Find(name));
    ASSERT_NE(box, nullptr) << name;
    box->SetValue(1);
    EXPECT_EQ(form.cmdSave.Enabled, marks) << name;
  }
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

TEST(KeyGrid, GenericSort) {
  KeyGrid grid;
  for (const char* text : {"b", "99999", "", "20", "a", "3", "", "100000", "20"}) {
    grid.AddItem(std::to_string(grid.Rows()));
    grid.SetText(grid.Rows() - 1, Column::Order, text);
  }
  grid.SortGeneric(Column::Order);
  std::string places;
  for (int row = 1; row < grid.Rows(); ++row) places += grid.Text(row, Column::Action);
  EXPECT_EQ(places, "649283715");
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

/// An older server takes the first digit of a two-key sequence for the key of each of these.
TEST(SaveRules, KeysForSpeedAndVolumeOfOlderServers) {
  Printer printer;
  World world(printer);
  MeridVersion& server = world.program.server;
  server.currentVersion = {false16, 4, 0, 2, 36, "4.0(2.36)"};
  for (const auto& [grid, menu] :
       {std::pair(headerGrid, "HEADER_"), {bodyGrid, "BODY_"}, {footerGrid, "FOOTER_"}})
    for (const char* name : {"SPEEDUP", "SLOWDOWN", "PAUSE", "ONEKEY_VOLUME", "RESET_VOLUME",
                             "DECREASE_VOLUME", "INCREASE_VOLUME"}) {
      const MenuRows rows{{1, {}, "4", std::string(menu) + name, {}},
                          {2, {}, "46", std::string(menu) + "REPLY", {}}};
      const auto refusals = Refusals(grid, rows, server);
      ASSERT_EQ(refusals.size(), 1U) << menu << name;
      EXPECT_EQ(refusals[0].rows, (std::vector{1, 2})) << menu << name;
      server.currentVersion.iBuild = 37;
      EXPECT_TRUE(Refusals(grid, rows, server).empty()) << menu << name;
      server.currentVersion.iBuild = 36;
    }
}

}  // namespace dialwright
