#!/usr/bin/env python3
"""Checks the three templates of the key map page: their placeholders, their labels, their markup."""

import pathlib
import re
import subprocess
import tempfile
import unittest

import saves

PROGRAM = saves.ROOT / "program"
MAKE = saves.ROOT / "tools/make-templates"

# template, the last version of its generation
TEMPLATES = [("Blank_Map_TemplatePre42.htm", (4, 2, 0, 37)), ("Blank_Map_Template.htm", (4, 9, 0, 99)),
             ("Blank_Map_Template_50.htm", (9, 0, 0, 0))]

# token, label on servers of before 4.2(0.38), label from then on
LABELS = [
    ("MENU_EXIT", "Exit", "Exit"),
    ("HEADER_GOTO_ENABLE", "Goto message feature (saved messages only)", "Goto message feature"),
    ("MSGMENU_GOTO_JUMPFORWARD", "Goto to the next message (saved messages only)", "Goto the next message"),
    ("FOOTER_SKIP_TO_START_OF_MESSAGE", "Restart message", "Restart message"),
    ("MSGMENU_NEXT", "Save as is", "Save as is"),
]


def tidy(page, *options):
    result = subprocess.run(["tidy", "-q", "-e", *options], input=page, capture_output=True)
    return result.returncode, result.stderr.decode("latin-1")


class Templates(unittest.TestCase):
    def test_rows_are_those_of_the_generation(self):
        for index, (name, version) in enumerate(TEMPLATES):
            with self.subTest(name):
                page = (PROGRAM / name).read_text("ascii")
                wanted = sorted(saves.tokens(version))
                rows = re.findall(r'<li data-key="%(\w+)%"><kbd>%(\w+)%</kbd> <span>([^<]+)</span></li>', page)
                self.assertEqual(sorted(row[0] for row in rows), wanted)
                self.assertEqual([row for row in rows if row[0] != row[1]], [])
                self.assertIn('<body data-name="%CONV_NAME%">', page)
                labels = {token: label for token, _, label in rows}
                for token, older, newer in LABELS:
                    self.assertEqual(labels[token], older if index == 0 else newer)
                self.assertEqual(tidy(page.encode()), (0, ""))
                # The page is handed on as one file: it may fetch nothing.
                self.assertEqual(re.findall(r"https?:|url\(|@import|<link|<script| src=", page), [])

                # A save leaves the page in UTF-16.
                filled = re.sub("%" + "%|%".join(["CONV_NAME"] + wanted) + "%", "7*", page)
                self.assertEqual(re.findall(r"%[A-Z]\w+%", filled), [])
                self.assertEqual(tidy(b"\xff\xfe" + filled.encode("utf-16-le"), "-utf16le"), (0, ""))

    def test_generator_notices_a_change(self):
        self.assertEqual(subprocess.run([MAKE, "--check"]).returncode, 0)
        with tempfile.TemporaryDirectory() as folder:
            self.assertEqual(subprocess.run([MAKE, folder]).returncode, 0)
            changed = pathlib.Path(folder) / TEMPLATES[1][0]
            changed.write_bytes(changed.read_bytes().replace(b"%MENU_NEW%", b"%MENU_OLD%", 1))
            result = subprocess.run([MAKE, "--check", folder], capture_output=True, text=True)
            self.assertEqual(result.returncode, 1)
            self.assertIn(TEMPLATES[1][0], result.stderr)


if __name__ == "__main__":
    unittest.main()
