"""Key map files for the tests of the card tool: ordinary ones, the longest, and broken ones."""

import random

PLAYBACK_TASKS = [
    "Change volume*", "Reset volume*", "Decrease volume*", "Increase volume*", "Slow playback",
    "Fast playback", "Reset playback speed", "Rewind", "Pause/Resume", "Fast-forward",
    "Skip message, save as is", "Save as new", "Save", "Delete", "Reply", "Forward message",
    "Jump to message header", "Jump to message footer", "Jump to message body",
    "Jump to end of message", "Play message properties", "Call the subscriber*", "Reply to all",
    "Play message by number (saved messages only)", "Play previous saved message",
    "Play next saved message", "Cancel or back up", "Operator", "Fast-forward to end",
    "Restart message", "Jump to first message in current message stack",
    "Jump to last message in current message stack", "Toggle the urgent flag of the current message",
    "Transcribe message", "ERROR, invalid key name!"]

MAIN_TASKS = [
    "Hear new messages", "Send a message", "Review old messages", "Change setup options",
    "Find messages*", "Main menu help", "Repeat menu", "Exit subscriber conversation",
    "Disable press or say", "System transfer", "Greetings administrator",
    "Broadcast message administrator", "Follow-Me Here", "Follow-Me Home", "Follow-Me Mobile",
    "Cancel Follow-Me"]

AFTER_TASKS = [
    "Replay message", "Save", "Delete", "Reply", "Forward message", "Save as new", "Rewind",
    "Deliver e-mail/fax to fax machine*", "Play message properties", "Operator",
    "Call the sender (Live Reply)", "Reply to all", "Play message by number (saved messages only)",
    "Play previous saved message", "Play next saved message", "Save as is", "Cancel or back up",
    "Jump to first message in current message stack", "Jump to last message in current message stack",
    "Toggle the urgent flag of the current message", "Send a quick message", "Transcribe message",
    "ERROR, invalid key name!"]

KEYS = list("123456789*0#") + [a + b for a in "123456789" for b in "1234567890*#"]


def keyed(tasks):
    return list(zip(KEYS, tasks))


ORDINARY = [
    ("Main Menu", keyed(MAIN_TASKS[:8])),
    ("Message Header", [("5", "Change volume*"), ("4", "Slow playback"), ("6", "Fast playback"),
                        ("7", "Rewind"), ("8", "Pause/Resume"), ("9", "Fast-forward"), ("2", "Save"),
                        ("3", "Delete"), ("1", "Jump to message header"), ("#", "Jump to end of message"),
                        ("12", "Play message by number"), ("*", "Cancel or back up")]),
    ("Message Body", [("7", "Rewind"), ("8", "Pause/Resume"), ("99", "Fast-forward to end")]),
    ("Message Footer", [("6", "Reset playbak speed"), ("*", "Cancel or back up")]),
    ("After Message Menu", keyed(AFTER_TASKS[:10])),
    ("Globals", [])]

LONGEST = [
    ("Main Menu", keyed(MAIN_TASKS)),
    ("Message Header", keyed(PLAYBACK_TASKS)),
    ("Message Body", keyed(PLAYBACK_TASKS)),
    ("Message Footer", keyed(PLAYBACK_TASKS)),
    ("After Message Menu", keyed(AFTER_TASKS)),
    ("Globals", [("77", "ERROR, invalid key name!"), ("88", "ERROR, invalid key name!")]),
    ("Setup Menu", keyed(["Greetings", "Message Settings", "Personal Settings"])),
    ("Message Settings Menu", keyed(["Message notification", "Fax delivery", "Menu style", "Private lists"]))]

# As long as a text of the file may be, and enough of them to need several sheets.
LARGEST = [("Menu %d with a name" % n,
            [(k, "Task %d with words enough to fill as many lines as a column of a panel will bear, and some" % i)
             for i, k in enumerate(KEYS[:40])]) for n in range(12)]

LONG_TEXTS = [("M" * 40, [("123", "Wordwithoutanyblank" * 6), ("1234567890*#" * 4, "Long keys"),
                          ("7", "A task " + "in many small words " * 9)])]


def root(name="Dialwright 1", product="Merid", version="4.2(0.20)"):
    return '<ConversationKeyMap conversationName = "%s" product= "%s" version= "%s">' % (name, product, version)


def lines_of(menus, root_line=None):
    lines = [root_line or root()]
    for menu, mappings in menus:
        lines += ["<KeyMapping>", "     <MenuName>%s</MenuName>" % menu, "     <Mappings>"]
        for keys, task in mappings:
            lines += ["          <Mapping>", "               <Keys>%s</Keys>" % keys,
                      "               <Task>%s</Task>" % task, "          </Mapping>"]
        lines += ["     </Mappings>", "</KeyMapping>"]
    return lines + ["</ConversationKeyMap>"]


def key_map(menus, root_line=None):
    return "".join(line + "\r\n" for line in lines_of(menus, root_line)).encode("cp1252")


def without_opening(menus, name):
    """A menu whose grid had no rows: of its lines only the closing ones are in the file."""
    opening = "<KeyMapping>\r\n     <MenuName>%s</MenuName>\r\n     <Mappings>\r\n" % name
    return key_map(menus).replace(opening.encode("cp1252"), b"")


def noise(size, seed=7):
    return random.Random(seed).randbytes(size)
