#!/usr/bin/env python3
"""Checks the three templates of the key map page: their placeholders, their labels, their markup."""

import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

import saves

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
PROGRAM = ROOT / "program"
MAKE = ROOT / "tools/make-templates"

# template, versions of servers that are given it, first and last of its generation among them
TEMPLATES = [
    ("Blank_Map_TemplatePre42.htm", [(1, 1, 0, 0), (4, 0, 4, 101), (4, 2, 0, 37)], 12 + 3 * 29 + 17 + 2),
    ("Blank_Map_Template.htm", [(4, 2, 0, 38), (4, 3, 0, 12), (4, 3, 0, 13), (4, 9, 0, 99)], 16 + 3 * 32 + 21 + 2),
    ("Blank_Map_Template_50.htm", [(5, 0, 0, 1), (5, 0, 0, 30), (7, 0, 0, 1), (9, 0, 0, 0)],
     16 + 3 * 35 + 23 + 2 + 7),
]

# token, label on servers of before 4.2(0.38), label from then on
LABELS = [
    ("MENU_EXIT", "Exit", "Exit"),
    ("HEADER_GOTO_ENABLE", "Goto message feature (saved messages only)", "Goto message feature"),
    ("BODY_GOTO_JUMPBACK", "Goto previous message (saved messages only)", "Goto previous message"),
    ("MSGMENU_GOTO_JUMPFORWARD", "Goto to the next message (saved messages only)", "Goto the next message"),
    ("FOOTER_SKIP_TO_START_OF_MESSAGE", "Restart message", "Restart message"),
    ("MSGMENU_PREVIOUS", "Rewind message", "Rewind message"),
    ("MSGMENU_NEXT", "Save as is", "Save as is"),
]


def template(name):
    return (PROGRAM / name).read_bytes()


def placeholders(page):
    return {p.decode() for p in re.findall(rb"%([^%\s]+)%", page)}


def tidy(page, *options):
    result = subprocess.run(["tidy", "-q", "-e", *options], input=page, capture_output=True)
    return result.returncode, result.stderr.decode("latin-1")


class Templates(unittest.TestCase):
    def test_placeholders_are_those_of_the_generation(self):
        for name, versions, count in TEMPLATES:
            held = placeholders(template(name)) - {"CONV_NAME"}
            self.assertEqual(len(held), count, name)
            for version in versions:
                with self.subTest(name, version=version):
                    self.assertEqual(set(saves.tokens(version)) - held, set(), "rows without a place")
            self.assertEqual(held, set(saves.tokens(versions[-1])), name)

    def test_each_row_holds_its_placeholder_as_key_and_as_mark(self):
        for name, _, count in TEMPLATES:
            with self.subTest(name):
                rows = re.findall(rb'<li data-key="%(\w+)%"><kbd>%(\w+)%</kbd> <span>([^<]+)</span></li>',
                                  template(name))
                self.assertEqual(len({row[0] for row in rows}), count)
                self.assertEqual([row for row in rows if row[0] != row[1]], [])
                self.assertIn(b'<body data-name="%CONV_NAME%">', template(name))

    def test_labels(self):
        for index, (name, _, _) in enumerate(TEMPLATES):
            labels = {t.decode(): label.decode() for t, label in
                      re.findall(rb'data-key="%(\w+)%".*?<span>(.*?)</span>', template(name))}
            for token, older, newer in LABELS:
                with self.subTest(name, token=token):
                    self.assertEqual(labels[token], older if index == 0 else newer)

    def test_nothing_is_left_of_a_filled_page(self):
        for name, versions, _ in TEMPLATES:
            with self.subTest(name):
                page = saves.filled(template(name), "Dialwright 2", dict.fromkeys(saves.tokens(versions[-1]), "7*"))
                self.assertEqual(re.findall(r"%[A-Z]\w+%", page.decode("utf-16")), [])
                self.assertEqual(tidy(page, "-utf16le"), (0, ""))

    def test_markup(self):
        for name, _, _ in TEMPLATES:
            with self.subTest(name):
                page = template(name)
                self.assertTrue(page.isascii())
                self.assertEqual(tidy(page), (0, ""))
                # The page is handed on as one file: it may fetch nothing.
                self.assertEqual(re.findall(rb"https?:|url\(|@import|<link|<script| src=", page), [])

    def test_generator_notices_a_change(self):
        self.assertEqual(subprocess.run([MAKE, "--check"]).returncode, 0)
        with tempfile.TemporaryDirectory() as folder:
            self.assertEqual(subprocess.run([MAKE, folder]).returncode, 0)
            self.assertEqual(subprocess.run([MAKE, "--check", folder]).returncode, 0)
            changed = pathlib.Path(folder) / TEMPLATES[1][0]
            changed.write_bytes(changed.read_bytes().replace(b"%MENU_NEW%", b"%MENU_OLD%", 1))
            result = subprocess.run([MAKE, "--check", folder], capture_output=True, text=True)
            self.assertEqual(result.returncode, 1)
            self.assertIn(TEMPLATES[1][0], result.stderr)


if __name__ == "__main__":
    unittest.main()
