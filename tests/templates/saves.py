"""What a save offers to a template: the rows of a server's grids, version by version."""

# Rows that come with a version: the suffix or token, and the first version that has it.
SINCE = {
    (4, 2, 0, 38): "GOTO_FIRST GOTO_LAST TOGGLE_URGENCY MSGMENU_GOTO_FIRST MSGMENU_GOTO_LAST "
                   "MSGMENU_TOGGLE_URGENCY MSGMENU_INSTANT_MESSAGE",
    (4, 3, 0, 13): "MENU_DISABLE_TOUCH_OR_SAY MENU_SUBSCRIBER_SYSTEM_TRANSFER "
                   "MENU_GREETINGS_ADMINISTRATOR MENU_BROADCAST_MESSAGE_ADMIN",
    (5, 0, 0, 1): "TRANSCRIBE_MESSAGE MSGMENU_TRANSCRIBE MAIN_GREETINGS MAIN_MESSAGE_SETTINGS "
                  "MAIN_PERSONAL_SETTINGS MESSAGE_SETTINGS_NOTIFICATION MESSAGE_SETTINGS_FAX "
                  "MESSAGE_SETTINGS_MENU_STYLE MESSAGE_SETTINGS_PRIVATE_LIST",
    (5, 0, 0, 30): "SPEED_NORMAL",
    (7, 0, 0, 1): "FORWARD_MSG_NO_INTROS MSGMENU_FORWARD_MSG_NO_INTROS",
}
ALWAYS = ("MENU_NEW MENU_SEND MENU_SAVED MENU_SETUP MENU_MSG_LOCATOR MENU_HELP MENU_REPEAT MENU_EXIT "
          "MENU_FOLLOW_ME_HERE MENU_FOLLOW_ME_HOME MENU_FOLLOW_ME_MOBILE MENU_FOLLOW_ME_CANCEL "
          "MSGMENU_REPLAY MSGMENU_SAVE MSGMENU_DELETE MSGMENU_REPLY MSGMENU_FORWARD MSGMENU_MARK_NEW "
          "MSGMENU_PREVIOUS MSGMENU_FAX MSGMENU_PROPERTIES MSGMENU_OPERATOR MSGMENU_LIVE_REPLY "
          "MSGMENU_REPLY_ALL MSGMENU_GOTO_ENABLE MSGMENU_GOTO_JUMPBACK MSGMENU_GOTO_JUMPFORWARD "
          "MSGMENU_NEXT MSGMENU_EXIT GLOBAL_SPEED_INCREASE GLOBAL_SPEED_DECREASE "
          "ONEKEY_VOLUME RESET_VOLUME DECREASE_VOLUME INCREASE_VOLUME SLOWDOWN SPEEDUP REWIND PAUSE "
          "FORWARD SKIP_MARK_ASIS SKIP_MARK_NEW SKIP_MARK_SAVED DELETE REPLY FORWARD_MSG "
          "SKIP_TO_START_OF_HEADER SKIP_TO_START_OF_FOOTER SKIP_TO_START_OF_MESSAGE "
          "SKIP_TO_AFTER_MSG_MENU PROPERTIES RETURN_CALL REPLY_ALL GOTO_ENABLE GOTO_JUMPBACK "
          "GOTO_JUMPFORWARD EXIT OPERATOR FF_TO_END FF_TO_START")
FAMILIES = ("MENU_", "MSGMENU_", "GLOBAL_", "MAIN_", "MESSAGE_SETTINGS_")
PREFIXES = ("HEADER_", "BODY_", "FOOTER_")


def tokens(version):
    """All tokens that a save on a server of the version can hand over."""
    names = ALWAYS.split()
    for since, more in SINCE.items():
        names += more.split() if since <= version else []
    for name in names:
        if name.startswith(FAMILIES):
            yield name
        else:
            yield from (prefix + name for prefix in PREFIXES)


def filled(template, name, keys):
    """The page after a save: the file in the coding in which a save leaves it, keys by token."""
    text = template.decode("ascii").replace("%CONV_NAME%", name)
    for token, key in keys.items():
        text = text.replace("%" + token + "%", key)
    return b"\xff\xfe" + text.encode("utf-16-le")
