#include "keymap/Catalogue.h"
#include "shell/frmMain.h"

namespace dialwright {

namespace {

using enum OrderSource;
using enum NoteWhen;

constexpr Gate v4238{4, 2, 0, 38};
constexpr Gate v4313{4, 3, 0, 13};
constexpr Gate v501{5, 0, 0, 1};
constexpr Gate v5030{5, 0, 0, 30};
constexpr Gate v701{7, 0, 0, 1};

// name, label, older label, gate, not on Domino, order, description
// clang-format off

constexpr Action mainMenu[] = {
    {"MENU_NEW", 1060, 0, {}, false, key, {1139}},
    {"MENU_SEND", 1127, 0, {}, false, key, {1140}},
    {"MENU_SAVED", 1118, 0, {}, false, key, {1141}},
    {"MENU_SETUP", 1015, 0, {}, false, key, {1142}},
    {"MENU_MSG_LOCATOR", 1003, 0, {}, false, key, {1138, 1093, always}},
    {"MENU_HELP", 1061, 0, {}, false, key, {1104}},
    {"MENU_REPEAT", 1110, 0, {}, false, fixed, {1105}},
    {"MENU_EXIT", 1037, 0, {}, false, key, {1041}},
    {"MENU_DISABLE_TOUCH_OR_SAY", 1206, 0, v4313, false, key, {1210}},
    {"MENU_SUBSCRIBER_SYSTEM_TRANSFER", 1207, 0, v4313, false, key, {1211}},
    {"MENU_GREETINGS_ADMINISTRATOR", 1208, 0, v4313, false, key, {1212}},
    {"MENU_BROADCAST_MESSAGE_ADMIN", 1209, 0, v4313, false, key, {1213}},
    {"MENU_FOLLOW_ME_HERE", 1221, 0, {}, false, key, {1225}},
    {"MENU_FOLLOW_ME_HOME", 1222, 0, {}, false, key, {1226}},
    {"MENU_FOLLOW_ME_MOBILE", 1223, 0, {}, false, key, {1227}},
    {"MENU_FOLLOW_ME_CANCEL", 1224, 0, {}, false, key, {1228}},
};

constexpr Action playback[] = {
    {"ONEKEY_VOLUME", 1016, 0, {}, false, none, {1025, 1094, always}},
    {"RESET_VOLUME", 1116, 0, {}, false, none, {1052, 1094, always}},
    {"DECREASE_VOLUME", 1109, 0, {}, false, none, {1051, 1094, always}},
    {"INCREASE_VOLUME", 1079, 0, {}, false, none, {1050, 1094, always}},
    {"SLOWDOWN", 1135, 0, {}, false, none, {1136, 1092, olderServer}},
    {"SPEEDUP", 1044, 0, {}, false, none, {1137, 1092, olderServer}},
    {"SPEED_NORMAL", 1217, 0, v5030, false, none, {1216}},
    {"REWIND", 1119, 0, {}, false, none, {1072}},
    {"PAUSE", 1101, 0, {}, false, none, {1102, 1092, always}},
    {"FORWARD", 1045, 0, {}, false, none, {1073}},
    {"SKIP_MARK_ASIS", 1131, 0, {}, false, none, {1134}},
    {"SKIP_MARK_NEW", 1129, 0, {}, false, none, {1133}},
    {"SKIP_MARK_SAVED", 1130, 0, {}, false, none, {1132}},
    {"DELETE", 1026, 0, {}, false, none, {1027}},
    {"REPLY", 1114, 0, {}, false, none, {1113, 1096, always}},
    {"FORWARD_MSG", 1054, 0, {}, false, none, {1008}},
    {"SKIP_TO_START_OF_HEADER", 1070, 0, {}, false, none, {1075}},
    {"SKIP_TO_START_OF_FOOTER", 1069, 0, {}, false, none, {1074}},
    {"SKIP_TO_START_OF_MESSAGE", 1068, 0, {}, false, none, {1076}},
    {"SKIP_TO_AFTER_MSG_MENU", 1066, 0, {}, false, none, {1067}},
    {"PROPERTIES", 1103, 0, {}, false, none, {1107}},
    {"RETURN_CALL", 1011, 0, {}, false, none, {1062, 1091, always}},
    {"REPLY_ALL", 1115, 0, {}, false, none, {1112}},
    {"GOTO_ENABLE", 1186, 1056, {}, false, none, {1189, 1097, olderServer, 1047}},
    {"GOTO_JUMPBACK", 1187, 1058, {}, false, none, {1190, 1097, olderServer, 1049}},
    {"GOTO_JUMPFORWARD", 1188, 1059, {}, false, none, {1191, 1097, olderServer, 1048}},
    {"EXIT", 1038, 0, {}, false, none, {1143}},
    {"OPERATOR", 1057, 0, {}, false, none, {1144}},
    {"FF_TO_END", 1042, 0, {}, false, none, {1005}},
    {"FF_TO_START", 1043, 0, {}, false, none, {1006}},
    {"GOTO_FIRST", 1185, 0, v4238, false, none, {1180}},
    {"GOTO_LAST", 1184, 0, v4238, false, none, {1181}},
    {"TOGGLE_URGENCY", 1183, 0, v4238, false, none, {1182}},
    {"TRANSCRIBE_MESSAGE", 1220, 0, v501, false, none, {1219}},
    {"FORWARD_MSG_NO_INTROS", 1236, 0, v701, true, none, {1237}},
};

constexpr Action afterMessage[] = {
    {"MSGMENU_REPLAY", 1111, 0, {}, false, key, {1106}},
    {"MSGMENU_SAVE", 1125, 0, {}, false, key, {1082}},
    {"MSGMENU_DELETE", 1026, 0, {}, false, key, {1027}},
    {"MSGMENU_REPLY", 1114, 0, {}, false, key, {1113, 1096, always}},
    {"MSGMENU_FORWARD", 1053, 0, {}, false, key, {1008}},
    {"MSGMENU_MARK_NEW", 1124, 0, {}, false, key, {1081}},
    {"MSGMENU_PREVIOUS", 1119, 0, {}, false, key, {1071}},
    {"MSGMENU_FAX", 1028, 0, {}, false, key, {1128, 1095, always}},
    {"MSGMENU_PROPERTIES", 1103, 0, {}, false, key, {1107}},
    {"MSGMENU_OPERATOR", 1010, 0, {}, false, key, {1144}},
    {"MSGMENU_LIVE_REPLY", 1011, 0, {}, false, key, {1062, 1091, always}},
    {"MSGMENU_REPLY_ALL", 1115, 0, {}, false, key, {1112}},
    {"MSGMENU_GOTO_ENABLE", 1186, 1056, {}, false, fixed, {1189, 1097, olderServer, 1047}},
    {"MSGMENU_GOTO_JUMPBACK", 1187, 1058, {}, false, fixed, {1190, 1097, olderServer, 1049}},
    {"MSGMENU_GOTO_JUMPFORWARD", 1188, 1059, {}, false, fixed, {1191, 1097, olderServer, 1048}},
    {"MSGMENU_NEXT", 1123, 0, {}, false, key, {1134}},
    {"MSGMENU_EXIT", 1039, 0, {}, false, key, {1040}},
    {"MSGMENU_GOTO_FIRST", 1185, 0, v4238, false, key, {1180}},
    {"MSGMENU_GOTO_LAST", 1184, 0, v4238, false, key, {1181}},
    {"MSGMENU_TOGGLE_URGENCY", 1183, 0, v4238, false, key, {1182}},
    {"MSGMENU_INSTANT_MESSAGE", 1192, 0, v4238, false, key, {1193}},
    {"MSGMENU_TRANSCRIBE", 1220, 0, v501, false, key, {1219}},
    {"MSGMENU_FORWARD_MSG_NO_INTROS", 1236, 0, v701, true, key, {1237}},
};

constexpr Action globals[] = {
    {"GLOBAL_SPEED_INCREASE", 1229, 0, {}, false, none, {1232}},
    {"GLOBAL_SPEED_DECREASE", 1230, 0, {}, false, none, {1233}},
};

// clang-format on

constexpr PlaybackSection playbackSections[] = {
    {"HEADER_", headerGrid}, {"BODY_", bodyGrid}, {"FOOTER_", footerGrid}};

}  // namespace

std::span<const Action> MainMenuActions() { return mainMenu; }
std::span<const Action> PlaybackActions() { return playback; }
std::span<const Action> AfterMessageActions() { return afterMessage; }
std::span<const Action> GlobalActions() { return globals; }
std::span<const PlaybackSection> PlaybackSections() { return playbackSections; }

}  // namespace dialwright
