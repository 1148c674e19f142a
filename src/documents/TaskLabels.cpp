#include "documents/TaskLabels.h"

#include <algorithm>
#include <span>

#include "keymap/Catalogue.h"
#include "shell/Program.h"

namespace dialwright {

namespace {

struct Task {
  std::string_view name;  ///< the token; for message playback what stands behind the prefix
  std::string_view label;
  std::string_view olderLabel = {};  ///< below `gotoForAllMessages`, if another
};

// An asterisk marks a task that not every subscriber has.
constexpr Task menuTasks[] = {
    {"MENU_NEW", "Hear new messages"},
    {"MENU_SEND", "Send a message"},
    {"MENU_SAVED", "Review old messages"},
    {"MENU_SETUP", "Change setup options"},
    {"MENU_MSG_LOCATOR", "Find messages*"},
    {"MENU_EXIT", "Exit subscriber conversation"},
    {"MENU_HELP", "Main menu help"},
    {"MENU_REPEAT", "Repeat menu"},
    {"MENU_DISABLE_TOUCH_OR_SAY", "Disable press or say"},
    {"MENU_SUBSCRIBER_SYSTEM_TRANSFER", "System transfer"},
    {"MENU_GREETINGS_ADMINISTRATOR", "Greetings administrator"},
    {"MENU_BROADCAST_MESSAGE_ADMIN", "Broadcast message administrator"},
    {"MENU_FOLLOW_ME_HERE", "Follow-Me Here"},
    {"MENU_FOLLOW_ME_HOME", "Follow-Me Home"},
    {"MENU_FOLLOW_ME_MOBILE", "Follow-Me Mobile"},
    {"MENU_FOLLOW_ME_CANCEL", "Cancel Follow-Me"},
    {"MAIN_GREETINGS", "Greetings"},
    {"MAIN_MESSAGE_SETTINGS", "Message Settings"},
    {"MAIN_PERSONAL_SETTINGS", "Personal Settings"},
    {"MESSAGE_SETTINGS_NOTIFICATION", "Message notification"},
    {"MESSAGE_SETTINGS_FAX", "Fax delivery"},
    {"MESSAGE_SETTINGS_MENU_STYLE", "Menu style"},
    {"MESSAGE_SETTINGS_PRIVATE_LIST", "Private lists"},
};

constexpr Task playbackTasks[] = {
    {"ONEKEY_VOLUME", "Change volume*"},
    {"RESET_VOLUME", "Reset volume*"},
    {"DECREASE_VOLUME", "Decrease volume*"},
    {"INCREASE_VOLUME", "Increase volume*"},
    {"SLOWDOWN", "Slow playback"},
    {"SPEEDUP", "Fast playback"},
    {"SPEED_NORMAL", "Reset playback speed"},
    {"REWIND", "Rewind"},
    {"PAUSE", "Pause/Resume"},
    {"FORWARD", "Fast-forward"},
    {"SKIP_MARK_ASIS", "Skip message, save as is"},
    {"SKIP_MARK_NEW", "Save as new"},
    {"SKIP_MARK_SAVED", "Save"},
    {"DELETE", "Delete"},
    {"REPLY", "Reply"},
    {"FORWARD_MSG", "Forward message"},
    {"SKIP_TO_START_OF_HEADER", "Jump to message header"},
    {"SKIP_TO_START_OF_FOOTER", "Jump to message footer"},
    {"SKIP_TO_START_OF_MESSAGE", "Jump to message body"},
    {"SKIP_TO_AFTER_MSG_MENU", "Jump to end of message"},
    {"PROPERTIES", "Play message properties"},
    {"RETURN_CALL", "Call the subscriber*"},
    {"REPLY_ALL", "Reply to all"},
    {"GOTO_ENABLE", "Play message by number", "Play message by number (saved messages only)"},
    {"GOTO_JUMPBACK", "Play previous saved message"},
    {"GOTO_JUMPFORWARD", "Play next saved message"},
    {"EXIT", "Cancel or back up"},
    {"OPERATOR", "Operator"},
    {"FF_TO_END", "Fast-forward to end"},
    {"FF_TO_START", "Restart message"},
    {"GOTO_FIRST", "Jump to first message in current message stack"},
    {"GOTO_LAST", "Jump to last message in current message stack"},
    {"TOGGLE_URGENCY", "Toggle the urgent flag of the current message"},
    {"TRANSCRIBE_MESSAGE", "Transcribe message"},
};

constexpr Task afterMessageTasks[] = {
    {"MSGMENU_REPLAY", "Replay message"},
    {"MSGMENU_SAVE", "Save"},
    {"MSGMENU_DELETE", "Delete"},
    {"MSGMENU_REPLY", "Reply"},
    {"MSGMENU_FORWARD", "Forward message"},
    {"MSGMENU_MARK_NEW", "Save as new"},
    {"MSGMENU_PREVIOUS", "Rewind"},
    {"MSGMENU_FAX", "Deliver e-mail/fax to fax machine*"},
    {"MSGMENU_PROPERTIES", "Play message properties"},
    {"MSGMENU_OPERATOR", "Operator"},
    {"MSGMENU_LIVE_REPLY", "Call the sender (Live Reply)"},
    {"MSGMENU_REPLY_ALL", "Reply to all"},
    {"MSGMENU_GOTO_ENABLE", "Play message by number",
     "Play message by number (saved messages only)"},
    {"MSGMENU_GOTO_JUMPBACK", "Play previous saved message"},
    {"MSGMENU_GOTO_JUMPFORWARD", "Play next saved message"},
    {"MSGMENU_NEXT", "Save as is"},
    {"MSGMENU_EXIT", "Cancel or back up"},
    {"MSGMENU_GOTO_FIRST", "Jump to first message in current message stack"},
    {"MSGMENU_GOTO_LAST", "Jump to last message in current message stack"},
    {"MSGMENU_TOGGLE_URGENCY", "Toggle the urgent flag of the current message"},
    {"MSGMENU_INSTANT_MESSAGE", "Send a quick message"},
    {"MSGMENU_TRANSCRIBE", "Transcribe message"},
};

/// The footer alone is spelled so.
constexpr Task footerSpeedNormal{"FOOTER_SPEED_NORMAL", "Reset playbak speed"};

constexpr std::string_view unknownTask = "ERROR, invalid key name!";

const Task* Find(std::span<const Task> tasks, std::string_view name) {
  const auto task = std::ranges::find(tasks, name, &Task::name);
  return task == tasks.end() ? nullptr : &*task;
}

const Task* FindTask(std::string_view token) {
  if (token == footerSpeedNormal.name) return &footerSpeedNormal;
  for (const PlaybackSection& section : PlaybackSections())
    if (token.starts_with(section.prefix))
      return Find(playbackTasks, token.substr(section.prefix.size()));
  const Task* task = Find(menuTasks, token);
  return task != nullptr ? task : Find(afterMessageTasks, token);
}

}  // namespace

std::string_view TaskLabel(const Program& program, std::string_view token) {
  const Task* task = FindTask(token);
  if (task == nullptr) return unknownTask;
  const bool older = !task->olderLabel.empty() && !gotoForAllMessages.IsOpen(program.server);
  return older ? task->olderLabel : task->label;
}

bool HasTaskLabel(std::string_view token) { return FindTask(token) != nullptr; }

}  // namespace dialwright
