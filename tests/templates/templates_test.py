#!/usr/bin/env python3
"""Checks the templates of the key map page and the internal stock script against the tables of actions."""

import html
import pathlib
import re
import subprocess
import sys
import unittest
import zlib

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
sys.path.append(str(ROOT / "tools"))
import catalogue

KNOWN = catalogue.load()
NEWEST = (9, 0, 0, 0)
# The rows of the two menus of setup options, which no grid has.
SETUP = [*KNOWN.setupMenu, *KNOWN.messageSettingsMenu]

# template, the last version of its generation
TEMPLATES = [("Blank_Map_TemplatePre42.htm", (4, 2, 0, 37)), ("Blank_Map_Template.htm", (4, 9, 0, 99)),
             ("Blank_Map_Template_50.htm", NEWEST)]


# The oldest template serves servers of both wordings.
OLDER = " (before version 4.2(0.37): saved messages only)"


def actions(version, both=False):
    """All tokens that a save on a server of the version can hand over, with their labels."""
    for menu in (KNOWN.main, KNOWN.playback, KNOWN.after, KNOWN.globals):
        for row in menu:
            if row.since <= version:
                text = KNOWN.strings[row.label].strip() + (OLDER if both and row.olderLabel != row.label else "")
                yield from ((prefix + row.token, text) for prefix in (KNOWN.prefixes if menu is KNOWN.playback else [""]))


class Templates(unittest.TestCase):
    def test_rows_are_those_of_the_generation(self):
        for name, version in TEMPLATES:
            with self.subTest(name):
                page = (ROOT / "program" / name).read_text("ascii")
                labels = dict(actions(version, name == TEMPLATES[0][0]))
                wanted = sorted([*labels, *(SETUP if version >= (5, 0, 0, 1) else [])])
                rows = re.findall(r'<li data-key="%(\w+)%"><kbd>%(\w+)%</kbd> <span>([^<]+)</span></li>', page)
                self.assertEqual(sorted(row[0] for row in rows), wanted)
                for token, key, label in rows:
                    self.assertEqual((key, html.unescape(label)), (token, labels.get(token, label)))
                self.assertIn('<body data-name="%CONV_NAME%">', page)
                # The page is handed on as one file: it may fetch nothing.
                self.assertEqual(re.findall(r"https?:|url\(|@import|<link|<script| src=", page), [])

                # A save leaves the page in UTF-16.
                filled = re.sub("%" + "%|%".join(["CONV_NAME"] + wanted) + "%", "7*", page)
                self.assertEqual(re.findall(r"%[A-Z]\w+%", filled), [])
                told = subprocess.run(["tidy", "-q", "-e", "-utf16le"], input=b"\xff\xfe" + filled.encode("utf-16-le"),
                                      stderr=subprocess.PIPE)
                self.assertEqual((told.returncode, told.stderr), (0, b""))
        self.assertEqual(subprocess.run([ROOT / "tools/make-templates", "--check"]).returncode, 0)


class StockScript(unittest.TestCase):
    DATA = (ROOT / "program/SubMsgPlay_Alternate_Custom_Internal.cde").read_bytes()

    def test_checksum_line(self):
        # CRC-32 of all other lines as a signed number, never 0, with a blank in the place of the sign.
        lines = self.DATA.splitlines(keepends=True)
        crc = zlib.crc32(b"".join(line for line in lines if not line.startswith(b"#CRC")))
        self.assertEqual([line.decode().rstrip() for line in lines if line.startswith(b"#CRC")],
                         ["#CRC " + format((crc ^ 1 << 31) - (1 << 31) or 1, " d")])

    def test_every_key_is_there_in_its_written_form(self):
        macros = self.DATA.decode("cp1252").partition("\r\n[MACROS]\r\n")[2].partition("\r\n[")[0]
        pairs = re.findall(r"^(\w+)=(.*)\r$", macros, re.M)
        values = dict(pairs)
        self.assertEqual(len(values), len(pairs))
        for prefix in (*KNOWN.prefixes, "MSGMENU_"):
            keys, singles = [], []
            for token in (t for t, _ in actions(NEWEST) if t.startswith(prefix)):
                # Keys that work on the playing message are single ones, and begin no double one.
                single = any(part in token for part in ("_SLOWDOWN", "_SPEEDUP", "_PAUSE", "_VOLUME"))
                self.assertRegex(values.get(token, ""), r'^ "[0-9*#]{0,%d}"$' % (1 if single else 2), token)
                if values[token] != ' ""':
                    keys.append(values[token])
                    singles += [values[token]] if single else []
                if prefix == "MSGMENU_":
                    unvoiced = "_GOTO_ENABLE" in token or "_GOTO_JUMP" in token
                    self.assertRegex(values.get("ORDINAL_" + token, ""), r"^99999$" if unvoiced else r"^ \d+$", token)
            self.assertEqual(len(set(keys)), len(keys), prefix)
            self.assertEqual([k for k in keys for s in singles if k != s and k.startswith(s[:-1])], [], prefix)
        for mirror, token in (("RECEIPT_RESEND", "MSGMENU_REPLY"), ("RECEIPT_PLAY_ORIGINAL_MSG", "MSGMENU_FAX")):
            for start in ("", "ORDINAL_"):
                self.assertEqual(values[start + mirror], values[start + token])


if __name__ == "__main__":
    unittest.main()
