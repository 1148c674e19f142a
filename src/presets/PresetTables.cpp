#include "presets/PresetTables.h"

namespace dialwright {

namespace {

constexpr PresetRow standardRows[] = {
    {"MENU_NEW", "1", "100"},
    {"MENU_SEND", "2", "101"},
    {"MENU_SAVED", "3", "102"},
    {"MENU_SETUP", "4", "103"},
    {"MENU_MSG_LOCATOR", "5", "104"},
    {"MENU_HELP", "0", "105"},
    {"MENU_REPEAT", "#", "99999"},
    {"MENU_DISABLE_TOUCH_OR_SAY", "", "99999"},
    {"MENU_SUBSCRIBER_SYSTEM_TRANSFER", "", "99999"},
    {"MENU_GREETINGS_ADMINISTRATOR", "", "99999"},
    {"MENU_BROADCAST_MESSAGE_ADMIN", "", "99999"},
    {"MENU_FOLLOW_ME_HERE", "", "99999"},
    {"MENU_FOLLOW_ME_HOME", "", "99999"},
    {"MENU_FOLLOW_ME_MOBILE", "", "99999"},
    {"MENU_FOLLOW_ME_CANCEL", "", "99999"},
    {"MENU_EXIT", "*", "106"},
};

constexpr PresetRow alternateSRows[] = {
    {"MENU_NEW", "5", "10"},
    {"MENU_SEND", "6", "20"},
    {"MENU_SAVED", "3", "30"},
    {"MENU_SETUP", "4", "40"},
    {"MENU_MSG_LOCATOR", "8", "45"},
    {"MENU_HELP", "0", "50"},
    {"MENU_REPEAT", "#", "70"},
    {"MENU_DISABLE_TOUCH_OR_SAY", "", "99999"},
    {"MENU_SUBSCRIBER_SYSTEM_TRANSFER", "", "99999"},
    {"MENU_GREETINGS_ADMINISTRATOR", "", "99999"},
    {"MENU_BROADCAST_MESSAGE_ADMIN", "", "99999"},
    {"MENU_FOLLOW_ME_HERE", "", "99999"},
    {"MENU_FOLLOW_ME_HOME", "", "99999"},
    {"MENU_FOLLOW_ME_MOBILE", "", "99999"},
    {"MENU_FOLLOW_ME_CANCEL", "", "99999"},
    {"MENU_EXIT", "9", "60"},
};

constexpr PresetRow alternateXRows[] = {
    {"MENU_NEW", "2", "20"},
    {"MENU_SEND", "1", "10"},
    {"MENU_SAVED", "3", "30"},
    {"MENU_SETUP", "5", "40"},
    {"MENU_MSG_LOCATOR", "8", "55"},
    {"MENU_HELP", "0", "99999"},
    {"MENU_REPEAT", "#", "70"},
    {"MENU_EXIT", "*", "60"},
    {"MENU_DISABLE_TOUCH_OR_SAY", "", "99999"},
    {"MENU_SUBSCRIBER_SYSTEM_TRANSFER", "", "99999"},
    {"MENU_GREETINGS_ADMINISTRATOR", "", "99999"},
    {"MENU_BROADCAST_MESSAGE_ADMIN", "", "99999"},
    {"MENU_FOLLOW_ME_HERE", "", "99999"},
    {"MENU_FOLLOW_ME_HOME", "", "99999"},
    {"MENU_FOLLOW_ME_MOBILE", "", "99999"},
    {"MENU_FOLLOW_ME_CANCEL", "", "99999"},
};

constexpr PresetRow playbackRows[] = {
    {"ONEKEY_VOLUME", "5"},
    {"RESET_VOLUME", ""},
    {"DECREASE_VOLUME", ""},
    {"INCREASE_VOLUME", ""},
    {"SLOWDOWN", "4"},
    {"SPEEDUP", "6"},
    {"REWIND", "7"},
    {"PAUSE", "8"},
    {"FORWARD", "9"},
    {"SKIP_MARK_NEW", ""},
    {"SKIP_MARK_SAVED", "2"},
    {"DELETE", "3"},
    {"REPLY", ""},
    {"FORWARD_MSG", ""},
    {"SKIP_TO_START_OF_HEADER", "1"},
    {"SKIP_TO_START_OF_FOOTER", ""},
    {"SKIP_TO_START_OF_MESSAGE", ""},
    {"SKIP_TO_AFTER_MSG_MENU", "#"},
    {"PROPERTIES", ""},
    {"RETURN_CALL", ""},
    {"REPLY_ALL", ""},
    {"GOTO_ENABLE", "12", "", {}, 1188},  // bears the label of the row after next until a load
    {"GOTO_JUMPBACK", "14"},
    {"GOTO_JUMPFORWARD", "16"},
    {"SPEED_NORMAL", "", "", {5, 0, 0, 10}},
    {"EXIT", "*"},
    {"OPERATOR", ""},
    {"GOTO_FIRST", "", "99999", {4, 2, 0, 38}},
    {"GOTO_LAST", "", "99999", {4, 2, 0, 38}},
    {"TOGGLE_URGENCY", "", "99999", {4, 2, 0, 38}},
};

constexpr PresetRow afterMessageRows[] = {
    {"MSGMENU_REPLAY", "1", "100"},
    {"MSGMENU_SAVE", "2", "101"},
    {"MSGMENU_DELETE", "3", "102"},
    {"MSGMENU_REPLY", "4", "103"},
    {"MSGMENU_FORWARD", "5", "104"},
    {"MSGMENU_MARK_NEW", "6", "105"},
    {"MSGMENU_PREVIOUS", "7", "106"},
    {"MSGMENU_FAX", "8", "107"},
    {"MSGMENU_PROPERTIES", "9", "108"},
    {"MSGMENU_OPERATOR", "", "99999"},
    {"MSGMENU_LIVE_REPLY", "44", "109"},
    {"MSGMENU_REPLY_ALL", "42", "99999"},
    {"MSGMENU_GOTO_ENABLE", "12", "110"},
    {"MSGMENU_GOTO_JUMPBACK", "14", "99999"},
    {"MSGMENU_GOTO_JUMPFORWARD", "16", "99999"},
    {"MSGMENU_NEXT", "#", "99999"},
    {"MSGMENU_EXIT", "*", "111"},
    {"MSGMENU_GOTO_FIRST", "", "99999", {4, 2, 0, 37}},
    {"MSGMENU_GOTO_LAST", "", "99999", {4, 2, 0, 37}},
    {"MSGMENU_TOGGLE_URGENCY", "", "99999", {4, 2, 0, 37}},
    {"MSGMENU_INSTANT_MESSAGE", "", "99999", {4, 2, 0, 37}},
};

}  // namespace

std::span<const PresetRow> StandardMainMenu() { return standardRows; }
std::span<const PresetRow> AlternateSMainMenu() { return alternateSRows; }
std::span<const PresetRow> AlternateXMainMenu() { return alternateXRows; }
std::span<const PresetRow> StandardPlayback() { return playbackRows; }
std::span<const PresetRow> StandardAfterMessage() { return afterMessageRows; }

}  // namespace dialwright
