#!/usr/bin/env python3
"""Runs the card tool as the editor starts it and reads its documents back.

usage: cardtool_test.py TOOL_FOLDER [unittest arguments]

TOOL_FOLDER is the laid-out folder PDFFoldoutBuilder of a program folder.
"""

import html
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

import key_maps as maps

TOOL = None  # set by main
A4_ACROSS = (841.89, 595.28)
PANEL_WIDTH = 85.6 * 72 / 25.4
FOOT_LINE = "* Not every subscriber has this task"


class Folder:
    """A program folder of its own, with a key map in it or none."""

    def __init__(self, key_map):
        self.temporary = tempfile.TemporaryDirectory()
        self.program = pathlib.Path(self.temporary.name)
        self.tool = self.program / "PDFFoldoutBuilder"
        self.tool.mkdir()
        self.write(key_map)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.temporary.cleanup()

    def write(self, key_map):
        if key_map is not None:
            (self.program / "XMLKeyMap.XML").write_bytes(key_map)

    def run(self):
        class_path = os.pathsep.join([str(TOOL), str(TOOL / "itext-1.3.jar")])
        return subprocess.run(["java", "-classpath", class_path, "FBuilder"], cwd=self.tool,
                              capture_output=True, text=True, timeout=120)

    def left(self):
        return sorted(p.name for p in (self.tool / "PDF").glob("*")) if (self.tool / "PDF").is_dir() else []

    def card(self):
        names = self.left()
        assert len(names) == 1, names
        return self.tool / "PDF" / names[0]


def pdf_text(card):
    return " " + " ".join(read_pdf("pdftotext", "-raw", card).split()) + " "


def read_pdf(program, option, card):
    to_output = ["-"] if program == "pdftotext" else []
    return subprocess.run([program, option, str(card)] + to_output, check=True, capture_output=True,
                          text=True).stdout


def pages_of_words(card):
    """For each page its size and its words as (left, top, right, bottom, text)."""
    number = r'"(-?[\d.]+)"'
    word = re.compile(r"<word xMin=%s yMin=%s xMax=%s yMax=%s>(.*?)</word>" % ((number,) * 4))
    for page in read_pdf("pdftotext", "-bbox", card).split("<page ")[1:]:
        size = tuple(float(n) for n in re.match(r"width=%s height=%s" % (number, number), page).groups())
        yield size, [tuple(float(n) for n in w[:4]) + (html.unescape(w[4]),) for w in word.findall(page)]


GOOD = [
    # what, key map, texts that must be there besides the mappings, file name, sheets
    ("ordinary", maps.key_map(maps.ORDINARY), maps.ORDINARY,
     ["Dialwright 1", "Merid 4.2(0.20)", "Globals No keys in this menu"], "Dialwright 1 key card.pdf", 1),
    ("longest", maps.key_map(maps.LONGEST, maps.root("Dialwright 3", "Merid", "7.0(1.0)")), maps.LONGEST,
     ["Dialwright 3", "Message Settings Menu"], "Dialwright 3 key card.pdf", 1),
    ("several sheets", maps.key_map(maps.LARGEST), maps.LARGEST, ["Sheet 6 of 6"], None, 6),
    ("longest texts", maps.key_map(maps.LONG_TEXTS, maps.root("W" * 40, "W" * 40, "W" * 40)), None, ["Long keys"], None, 1),
    ("name that no file may have", maps.key_map(maps.ORDINARY, maps.root("..\\..\\CON:1/\xe4")), maps.ORDINARY,
     [], "______CON_1__ key card.pdf", 1),
    ("no name", maps.key_map(maps.ORDINARY, maps.root("")), maps.ORDINARY, [], "key card.pdf", 1),
    ("another spacing, line feeds", maps.key_map(
        maps.ORDINARY, '<ConversationKeyMap product="Tessel"  conversationName="X"\tversion ="1.1(0.0)" >')
     .replace(b"\r\n", b"\n"), maps.ORDINARY, ["Tessel 1.1(0.0)"], "X key card.pdf", 1),
    ("menu without its opening lines", maps.without_opening(maps.ORDINARY + [("Setup Menu", [])], "Globals"),
     maps.ORDINARY, ["Setup Menu No keys"], None, 1),
    ("no menu at all", maps.key_map([]), [], ["Dialwright 1"], None, 1),
    ("nothing is escaped", maps.key_map([("Main Menu", [("&", "Save & <keep> &amp; &#65;")])]),
     [("Main Menu", [("&", "Save & <keep> &amp; &#65;")])], [], None, 1),
    ("letters of the code page", maps.key_map([("Men\xfc", [("1", "\xc9couter \u20ac \u201cna\xefve\u201d")])]),
     [("Men\xfc", [("1", "\xc9couter \u20ac \u201cna\xefve\u201d")])], ["Men\xfc"], None, 1),
    ("bytes that no font has", maps.key_map([("Main Menu", [("1", "a@b~c\xa0d")])])
     .replace(b"@", b"\x81").replace(b"~", b"\x01"), [("Main Menu", [("1", "a?b c d")])], [], None, 1),
]

BOMB = ('<!DOCTYPE x [<!ENTITY a "ha"><!ENTITY b "&a;&a;&a;&a;"><!ENTITY c "&b;&b;&b;&b;">'
        '<!ENTITY f SYSTEM "file:///etc/passwd">]>').encode()
WHOLE = maps.key_map(maps.ORDINARY)

BAD = [
    # what, key map, what standard error must say
    ("missing", None, "cannot be found"),
    ("empty", b"", "line 1: it ends too early"),
    ("document type and entities", BOMB + WHOLE, "line 1: <ConversationKeyMap was expected"),
    ("document type behind the root", WHOLE.replace(b"<KeyMapping>", BOMB, 1), "line 2: <KeyMapping> was expected"),
    ("noise", maps.noise(5000), "was expected"),
    ("noise behind the root", WHOLE[:60] + maps.noise(5000), "line 1"),
    ("another document", b"<html><body></body></html>", "<ConversationKeyMap was expected"),
    ("two bytes a character", WHOLE.decode("cp1252").encode("utf-16"), "<ConversationKeyMap was expected"),
    ("no version", WHOLE.replace(b"version", b"fashion", 1), "no version"),
    ("cut in the root", WHOLE[:40], "is missing"),
    ("cut in a text", WHOLE[:WHOLE.index(b"Send a") + 4], "line 11: </Task> is missing"),
    ("cut behind a menu", WHOLE[:WHOLE.index(b"<KeyMapping>", 100)], "it ends too early"),
    ("cut before its last line", WHOLE[:WHOLE.rindex(b"</Conv")], "it ends too early"),
    ("text behind the end", WHOLE + b"more", "text behind </ConversationKeyMap>"),
    ("end of a task missing", WHOLE.replace(b"</Task>", b"", 1), "line 7: </Task> is missing"),
    ("long name", maps.key_map([], maps.root("x" * 41)), "more than 40 characters"),
    ("long task", maps.key_map([("M", [("1", "x" * 201)])]), "more than 200 characters"),
    ("task that no panel holds", maps.key_map([("M", [("1" * 200, "W" * 200)])]), "too long for a panel"),
    ("too many keys", maps.key_map([("M", [("1", "t")] * 1001)]), "more than 1000 keys"),
    ("too many menus", maps.key_map([("M", [])] * 101), "more than 100 menus"),
    ("too many bytes", WHOLE + b" " * (1 << 20), "larger than"),
    ("endless root", b"<ConversationKeyMap " + b'a="" ' * 200000, "it ends too early"),
]


class CardTool(unittest.TestCase):
    def test_good_maps(self):
        for what, key_map, menus, texts, name, sheets in GOOD:
            with self.subTest(what), Folder(key_map) as folder:
                result = folder.run()
                self.assertEqual((result.returncode, result.stderr), (0, ""))
                self.assertEqual(len(folder.left()), 1, folder.left())
                if name:
                    self.assertEqual(folder.left(), [name])
                self.check_text(folder.card(), menus, texts)
                self.check_pages(folder.card(), sheets)

    def check_text(self, card, menus, texts):
        text = pdf_text(card)
        for wanted in texts:
            self.assertIn(wanted, text)
        if menus is None:
            return
        wanted = {}
        for pair in (p for _, mappings in menus for p in mappings):
            wanted[pair] = wanted.get(pair, 0) + 1
        for (keys, task), count in wanted.items():
            self.assertGreaterEqual(text.count(" %s %s " % (keys, task)), count, (keys, task))
        self.assertEqual(FOOT_LINE in text, any(task.endswith("*") for _, task in wanted))

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
            self.assertEqual(overlapping(words), [])

    def test_bad_maps(self):
        for what, key_map, reason in BAD:
            with self.subTest(what), Folder(key_map) as folder:
                result = folder.run()
                self.assertEqual((result.returncode, result.stdout), (1, ""))
                self.assertRegex(result.stderr, r"\AFBuilder: [^\n]+\n\Z")
                self.assertIn(reason, result.stderr)
                self.assertEqual(folder.left(), [])

    def test_a_card_is_replaced_whole_or_not_at_all(self):
        with Folder(WHOLE) as folder:
            folder.run()
            old = folder.card().read_bytes()
            folder.write(WHOLE[:-30])
            self.assertEqual(folder.run().returncode, 1)
            self.assertEqual(folder.card().read_bytes(), old)
            folder.write(maps.key_map([("Main Menu", [("9", "Something new")])]))
            self.assertEqual(folder.run().returncode, 0)
            self.assertIn(" 9 Something new ", pdf_text(folder.card()))

    def test_a_folder_that_cannot_be_written(self):
        with Folder(WHOLE) as folder:
            (folder.tool / "PDF").write_text("in the way")
            result = folder.run()
            self.assertEqual(result.returncode, 1)
            self.assertRegex(result.stderr, r"\AFBuilder: The card cannot be written: [^\n]+\n\Z")


def overlapping(words):
    """Pairs of words that are printed over each other; a font's box is taller than its letters."""
    found = []
    boxes = sorted((left, top + (bottom - top) * 0.2, right, bottom - (bottom - top) * 0.2, text)
                   for left, top, right, bottom, text in words)
    for n, a in enumerate(boxes):
        for b in boxes[n + 1:]:
            if b[0] > a[2] - 0.5:
                break
            if a[1] < b[3] and b[1] < a[3]:
                found.append((a, b))
    return found


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    TOOL = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main()
