#!/usr/bin/env python3
"""Runs the card tool as the editor starts it and reads its documents back.

usage: cardtool_test.py TOOL_FOLDER [unittest arguments]

TOOL_FOLDER is the laid-out folder PDFFoldoutBuilder of a program folder.
"""

import collections
import html
import itertools
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

TOOL = None  # set by main
A4_ACROSS = (841.89, 595.28)
PANEL_WIDTH = 85.6 * 72 / 25.4
PANEL_HEIGHT = 54 * 72 / 25.4
FOOT_LINE = "* Not every subscriber has this task"
NAMELESS = "ERROR, invalid key name!"

# As long as the tasks of the program are, all in all.
TASKS = [
    "Change volume*", "Rewind", "Reply to all", "Disable press or say", "Pause/Resume", "Save",
    "Jump to message footer", "Skip message, save as is", "Play message properties", "Forward message",
    "Play message by number (saved messages only)", "Cancel or back up", "Play next saved message",
    "Decrease volume*", "Call the subscriber*", "Jump to first message in current message stack",
    NAMELESS]
KEYS = list("123456789*0#") + [a + b for a in "123456789" for b in "1234567890*#"]


def menu(name, count, task="%s"):
    return name, [(KEYS[n], task % TASKS[n % len(TASKS)]) for n in range(count)]


ORDINARY = [menu("Main Menu", 8), menu("Message Header", 12), ("Message Body", [("99", "Fast-forward to end")]),
            ("Globals", [])]

# As many rows as the program's menus have.
LONGEST = [menu("Main Menu", 16), menu("Message Header", 35), menu("Message Body", 35), menu("Message Footer", 35),
           menu("After Message Menu", 23), menu("Globals", 2), menu("Setup Menu", 3), menu("Message Settings Menu", 4)]



def tagged(*counts):
    """Menus of so many rows, each of which can be found on the card by a word of its own."""
    return [("Menu %d" % m, [(KEYS[n], "%d.%d %s" % (m, n, TASKS[n % 16])) for n in range(count)])
            for m, count in enumerate(counts)]


# As long as a text of the file may be, and enough of them to need several sheets.
LARGEST = [menu("Menu %d with a name" % n, 40, "A task with words enough to fill the lines of a column: %s")
           for n in range(12)]
LONG_TEXTS = [("M" * 40, [("123", "Wordwithoutanyblank" * 6), ("1234567890*#" * 4, "Long keys"),
                          ("7", "A task " + "in many small words " * 9)])]


def root(name="Dialwright 1", product="Merid", version="4.2(0.20)"):
    return '<ConversationKeyMap conversationName = "%s" product= "%s" version= "%s">' % (name, product, version)


def key_map(menus, root_line=root()):
    lines = [root_line]
    for name, mappings in menus:
        lines += ["<KeyMapping>", "     <MenuName>%s</MenuName>" % name, "     <Mappings>"]
        for keys, task in mappings:
            lines += ["          <Mapping>", "               <Keys>%s</Keys>" % keys,
                      "               <Task>%s</Task>" % task, "          </Mapping>"]
        lines += ["     </Mappings>", "</KeyMapping>"]
    return "".join(line + "\r\n" for line in lines + ["</ConversationKeyMap>"]).encode("cp1252")


class Folder(tempfile.TemporaryDirectory):
    """A program folder of its own, with a key map in it or none."""

    def __init__(self, key_map):
        super().__init__()
        self.tool = pathlib.Path(self.name, "PDFFoldoutBuilder")
        self.tool.mkdir()
        self.write(key_map)

    def __enter__(self):
        return self

    def write(self, key_map):
        if key_map is not None:
            pathlib.Path(self.name, "XMLKeyMap.XML").write_bytes(key_map)

    def run(self):
        class_path = "%s:%s/itext-1.3.jar" % (TOOL, TOOL)
        return subprocess.run(["java", "-classpath", class_path, "FBuilder"], cwd=self.tool, capture_output=True,
                              text=True, timeout=120)

    def cards(self):
        return sorted(self.tool.glob("PDF/*"))


def read_pdf(option, card):
    return subprocess.run(["pdftotext", option, card, "-"], check=True, capture_output=True, text=True).stdout


def pdf_text(card):
    return " %s " % " ".join(read_pdf("-raw", card).split())


def pages_of_words(card):
    """For each page its size and its words as (left, top, right, bottom, text)."""
    number = r'"(-?[\d.]+)"'
    word = re.compile(r"<word xMin=%s yMin=%s xMax=%s yMax=%s>(.*?)</word>" % ((number,) * 4))
    for page in read_pdf("-bbox", card).split("<page ")[1:]:
        size = tuple(float(n) for n in re.match(r"width=%s height=%s" % (number, number), page).groups())
        yield size, [tuple(float(n) for n in w[:4]) + (html.unescape(w[4]),) for w in word.findall(page)]


ODD_TEXTS = [("Men\xfc", [("&", "Save & <keep> &amp; &#65;"), ("1", "\xc9couter \u20ac \u201cna\xefve\u201d")])]
ODD_ROOT = '<ConversationKeyMap product="Tessel"  conversationName="X"\tversion ="1.1(0.0)" >'
GOOD = [
    # what, key map, menus whose mappings must be there, other texts that must be there, file name, sheets
    ("ordinary", key_map(ORDINARY), ORDINARY,
     ["Dialwright 1", "Merid 4.2(0.20)"], "Dialwright 1 key card.pdf", 1),
    ("longest", key_map(LONGEST), LONGEST, ["Message Settings Menu"], "Dialwright 1 key card.pdf", 1),
    ("several sheets", key_map(LARGEST), LARGEST, ["Sheet 6 of 6"], "Dialwright 1 key card.pdf", 6),
    ("longest texts", key_map(LONG_TEXTS, root("W" * 40, "W" * 40, "W" * 40)), [], ["Long keys"],
     "W" * 40 + " key card.pdf", 1),
    ("name that no file may have", key_map([], root("..\\..\\CON:1/\xe4")), [],
     ["No menu of this conversation has a key."], "______CON_1__ key card.pdf", 1),
    ("no name", key_map([], root("")), [], [], "key card.pdf", 1),
    ("another spacing, line feeds", key_map(ORDINARY, ODD_ROOT).replace(b"\r\n", b"\n"), ORDINARY,
     ["Tessel 1.1(0.0)"], "X key card.pdf", 1),
    # What the file has of a menu whose grid had no rows.
    ("menu without its opening lines", key_map(ORDINARY + [("Setup Menu", [])]).replace(
        b"<KeyMapping>\r\n     <MenuName>Globals</MenuName>\r\n     <Mappings>\r\n", b""),
     ORDINARY, [], "Dialwright 1 key card.pdf", 1),
    ("nothing is escaped, letters of the code page", key_map(ODD_TEXTS), ODD_TEXTS, ["Men\xfc"],
     "Dialwright 1 key card.pdf", 1),
    ("bytes that no font has", key_map([("M", [("1", "a@b\x01c\xa0d")])]).replace(b"@", b"\x81"),
     [("M", [("1", "a?b c d")])], [], "Dialwright 1 key card.pdf", 1),
]

BOMB = b'<!DOCTYPE x [<!ENTITY a "ha"><!ENTITY b "&a;&a;&a;&a;"><!ENTITY f SYSTEM "file:///etc/passwd">]>'
WHOLE = key_map(ORDINARY)
BAD = [
    # what, key map, what standard error must say
    ("missing", None, "cannot be found"),
    ("empty", b"", "line 1: it ends too early"),
    ("document type and entities", BOMB + WHOLE, "line 1: <ConversationKeyMap was expected"),
    ("document type behind the root", WHOLE.replace(b"<KeyMapping>", BOMB, 1), "line 2: <KeyMapping> was expected"),
    ("two bytes a character", WHOLE.decode("cp1252").encode("utf-16"), "<ConversationKeyMap was expected"),
    ("no version", WHOLE.replace(b"version", b"fashion", 1), "no version"),
    ("cut in the root", WHOLE[:40], "is missing"),
    ("end of a task missing", WHOLE.replace(b"</Task>", b"", 1), "line 7: </Task> is missing"),
    ("text behind the end", WHOLE + b"more", "text behind </ConversationKeyMap>"),
    ("long name", key_map([], root("x" * 41)), "more than 40 characters"),
    ("long task", key_map([("M", [("1", "x" * 201)])]), "more than 200 characters"),
    ("task that no panel holds", key_map([("M", [("1" * 200, "W" * 200)])]), "too long for a panel"),
    ("too many keys", key_map([("M", [("1", "t")] * 1001)]), "more than 1000 keys"),
    ("too many menus", key_map([("M", [])] * 101), "more than 100 menus"),
    ("too many bytes", WHOLE + b" " * (1 << 20), "larger than"),
    ("endless root", b"<ConversationKeyMap " + b'a="" ' * 200000, "it ends too early"),
]


# stored map, the conversation's name in the editor's menu, how many panels go on with another's menu
STORED = [
    ("StandardKeyMap.XML", "Standard Conversation", 0), ("Optional1KeyMap.XML", "Optional Conversation 1", 4),
    ("OptionalNKeyMap.XML", "Alternate Keypad Mapping (N)", 5), ("OptionalSKeyMap.XML", "Alternate Keypad Mapping (S)", 0),
    ("OptionalXKeyMap.XML", "Alternate Keypad Mapping (X)", 5)]


TORN = [(9, 20, 21, 15, 12), (9, 30, 31, 5, 12), (9, 34, 35, 1, 12), (30, 31, 32, 33), (60, 60)]


def type_size(words, text):
    """The size of a word's type; the line below a card is set in 8 points."""
    height = {word[4]: word[3] - word[1] for word in words}
    return 8 * height[text] / height["Print"]


def torn(card, counts):
    """For each menu of tagged rows its pieces, in order: the sheet, row and column of the panel, and how many rows."""
    places = {}
    for sheet, (size, words) in enumerate(pages_of_words(card)):
        hint = next(word[1] for word in words if word[4] == "Print")
        rows = round((hint - min(word[1] for word in words) - 20) / PANEL_HEIGHT)
        top, left = (size[1] - rows * PANEL_HEIGHT) / 2, (size[0] - 3 * PANEL_WIDTH) / 2
        for x, y, _, _, text in words:
            if re.fullmatch(r"\d+\.\d+", text):
                places[text] = sheet, int((y - top) // PANEL_HEIGHT), int((x - left) // PANEL_WIDTH)
    for menu, count in enumerate(counts):
        panels = [places["%d.%d" % (menu, n)] for n in range(count)]
        yield [(place, len(list(group))) for place, group in itertools.groupby(panels)]


class CardTool(unittest.TestCase):
    def test_good_maps(self):
        for what, key_map, menus, texts, name, sheets in GOOD:
            with self.subTest(what), Folder(key_map) as folder:
                result = folder.run()
                self.assertEqual((result.returncode, result.stderr), (0, ""))
                self.assertEqual([card.name for card in folder.cards()], [name])
                self.check_text(folder.cards()[0], menus, texts)
                self.check_pages(folder.cards()[0], sheets)

    def check_text(self, card, menus, texts):
        text = pdf_text(card)
        for wanted in texts:
            self.assertIn(wanted, text)
        pairs = collections.Counter(pair for _, mappings in menus for pair in mappings)
        for (keys, task), count in pairs.items():
            wanted = 0 if task == NAMELESS else count
            self.assertGreaterEqual(text.count(" %s %s " % (keys, task)), wanted, (keys, task))
        self.assertIsNone(re.search("[0-9*#] " + NAMELESS, text))
        self.assertEqual(text.count(FOOT_LINE), any(task.endswith("*") for _, task in pairs))
        # A menu has a heading if there is something to stand below it.
        for name, mappings in menus:
            self.assertEqual(" %s " % name in text, any(task != NAMELESS for _, task in mappings), name)

    def check_pages(self, card, sheets):
        pages = list(pages_of_words(card))
        self.assertEqual(len(pages), sheets)
        for size, words in pages:
            for side, wanted in zip(size, A4_ACROSS):
                self.assertAlmostEqual(side, wanted, delta=0.1)
            margin = (size[0] - 3 * PANEL_WIDTH) / 2
            folds = [margin + n * PANEL_WIDTH for n in (0, 1, 2, 3)]
            first, last = min(w[1] for w in words), max(w[3] for w in words)
            for word in words:
                self.assertTrue(0 < word[1] and word[3] < size[1], word)
                self.assertTrue(margin - 0.5 < word[0] and word[2] < size[0] - margin + 0.5, word)
                # The lines above and below the card may run across its folds, nothing else may.
                if word[1] > first + 10 and word[3] < last - 10:
                    self.assertFalse([f for f in folds if word[0] - 2 < f < word[2] + 2], word)
            self.assertEqual([pair for pair in itertools.combinations(words, 2) if overlap(*pair)], [])

    def test_bad_maps(self):
        for what, key_map, reason in BAD:
            with self.subTest(what), Folder(key_map) as folder:
                result = folder.run()
                self.assertEqual((result.returncode, result.stdout), (1, ""))
                self.assertRegex(result.stderr, r"\AFBuilder: [^\n]+\n\Z")
                self.assertIn(reason, result.stderr)
                self.assertEqual(folder.cards(), [])

    def test_stored_maps_leave_the_own_card_alone(self):
        with Folder(WHOLE) as folder:
            self.assertEqual(folder.run().returncode, 0)
            own = folder.tool / "PDF" / "Dialwright 1 key card.pdf"
            old = own.read_bytes()
            for file, name, torn in STORED:
                with self.subTest(file):
                    folder.write((TOOL.parent / "XMLShots" / file).read_bytes())
                    self.assertEqual(folder.run().returncode, 0)
                    text = pdf_text(folder.tool / "PDF" / (name + " key card.pdf"))
                    self.assertTrue(text.startswith(" VOICE MAILBOX KEYS %s " % name), text[:90])
                    self.assertNotIn("Merid", text)
                    self.assertEqual(text.count("(continued)"), torn)
            self.assertEqual((len(folder.cards()), own.read_bytes()), (6, old))

    def test_the_type_that_tears_least(self):
        for rows, size, pieces in [(18, 8, 1), (20, 7.5, 1), (22, 7, 1), (23, 8, 2)]:
            menus = [("Menu", [(KEYS[n], "0.%d Rewind*" % n) for n in range(rows)])]
            with self.subTest(rows), Folder(key_map(menus)) as folder:
                self.assertEqual(folder.run().returncode, 0)
                _, words = next(pages_of_words(folder.cards()[0]))
                self.assertEqual([len(menu) for menu in torn(folder.cards()[0], [rows])], [pieces])
                self.assertAlmostEqual(type_size(words, "0.0"), size, delta=0.1)
                for word in ("subscriber", "press"):
                    self.assertGreater(type_size(words, word), 6.9)

    def test_a_torn_menu_goes_on_beside_itself(self):
        pieces_seen = 0
        for counts in TORN:
            with self.subTest(counts), Folder(key_map(tagged(*counts))) as folder:
                self.assertEqual(folder.run().returncode, 0)
                for pieces in torn(folder.cards()[0], counts):
                    for (place, _), (following, rows) in zip(pieces, pieces[1:]):
                        pieces_seen += 1
                        self.assertGreater(rows, 1, pieces)
                        if following[0] == place[0]:  # the last panel of a sheet has none
                            self.assertEqual(sum(abs(a - b) for a, b in zip(place, following)), 1, pieces)
        self.assertGreater(pieces_seen, 2 * len(TORN))

    def test_java(self):
        for file in TOOL.glob("*.class"):
            version = int.from_bytes(file.read_bytes()[6:8], "big") - 44
            self.assertEqual(version, 8 if file.stem == "FBuilder" else 11, file)
        with Folder(WHOLE) as folder:
            older = pathlib.Path(folder.name, "Older.java")
            older.write_text("""class Older { public static void main(String[] none) {
                System.setProperty("java.specification.version", "1.8"); FBuilder.main(none); } }""")
            result = subprocess.run(["java", "-classpath", TOOL, older], cwd=folder.tool, capture_output=True, text=True)
            self.assertEqual((result.returncode, result.stdout, result.stderr),
                             (1, "", "FBuilder: The card takes Java 11 or newer; this is Java 1.8.\n"))
            self.assertEqual(folder.cards(), [])

    def test_a_card_is_replaced_whole_or_not_at_all(self):
        with Folder(WHOLE) as folder:
            folder.run()
            old = folder.cards()[0].read_bytes()
            folder.write(WHOLE[:-30])
            self.assertEqual(folder.run().returncode, 1)
            self.assertEqual(folder.cards()[0].read_bytes(), old)
            folder.write(key_map([("Main Menu", [("9", "Something new")])]))
            self.assertEqual(folder.run().returncode, 0)
            self.assertIn(" 9 Something new ", pdf_text(folder.cards()[0]))

    def test_a_folder_that_cannot_be_written(self):
        with Folder(WHOLE) as folder:
            (folder.tool / "PDF").write_text("in the way")
            result = folder.run()
            self.assertEqual((result.returncode, result.stdout), (1, ""))
            self.assertRegex(result.stderr, r"\AFBuilder: The card cannot be written: [^\n]+\n\Z")


def overlap(a, b):
    """Whether two words are printed over each other; a font's box is taller than its letters."""
    spare = [(word[3] - word[1]) * 0.2 for word in (a, b)]
    return (a[0] < b[2] - 0.5 and b[0] < a[2] - 0.5 and
            a[1] + spare[0] < b[3] - spare[1] and b[1] + spare[1] < a[3] - spare[0])


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    TOOL = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main()
