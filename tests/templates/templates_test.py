#!/usr/bin/env python3
"""Checks the plain files of the program folder against the tables of actions: the three templates of
the key map page and the internal stock script."""

import pathlib
import re
import subprocess
import tempfile
import unittest
import zlib

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
MAKE = ROOT / "tools/make-templates"
NEWEST = (9, 0, 0, 0)
PREFIXES = ("HEADER_", "BODY_", "FOOTER_")
# The rows of the two menus of setup options, which no grid has.
SETUP = ("MAIN_GREETINGS MAIN_MESSAGE_SETTINGS MAIN_PERSONAL_SETTINGS MESSAGE_SETTINGS_NOTIFICATION "
         "MESSAGE_SETTINGS_FAX MESSAGE_SETTINGS_MENU_STYLE MESSAGE_SETTINGS_PRIVATE_LIST").split()

# template, the last version of its generation
TEMPLATES = [("Blank_Map_TemplatePre42.htm", (4, 2, 0, 37)), ("Blank_Map_Template.htm", (4, 9, 0, 99)),
             ("Blank_Map_Template_50.htm", NEWEST)]

# token, label on servers of before 4.2(0.38), label from then on
LABELS = [
    ("MENU_EXIT", "Exit", "Exit"),
    ("HEADER_GOTO_ENABLE", "Goto message feature (saved messages only)", "Goto message feature"),
    ("MSGMENU_GOTO_JUMPFORWARD", "Goto to the next message (saved messages only)", "Goto the next message"),
    ("FOOTER_SKIP_TO_START_OF_MESSAGE", "Restart message", "Restart message"),
    ("MSGMENU_NEXT", "Save as is", "Save as is"),
]


def tokens(version):
    """All tokens that a save on a server of the version can hand over."""
    source = (ROOT / "src/keymap/CatalogueTables.cpp").read_text()
    gates = {name: tuple(map(int, numbers.split(",")))
             for name, numbers in re.findall(r"Gate (\w+)\{([\d, ]+)\}", source)}
    for menu, actions in re.findall(r"Action (\w+)\[\] = \{(.*?)\n\};", source, re.S):
        for name, gate in re.findall(r'\{"(\w+)", \d+, \d+, (\w+|\{\}),', actions):
            if gate == "{}" or gates[gate] <= version:
                yield from (prefix + name for prefix in (PREFIXES if menu == "playback" else [""]))
    yield from SETUP if version >= (5, 0, 0, 1) else []


def tidy(page, *options):
    result = subprocess.run(["tidy", "-q", "-e", *options], input=page, capture_output=True)
    return result.returncode, result.stderr.decode("latin-1")


class Templates(unittest.TestCase):
    def test_rows_are_those_of_the_generation(self):
        for index, (name, version) in enumerate(TEMPLATES):
            with self.subTest(name):
                page = (ROOT / "program" / name).read_text("ascii")
                wanted = sorted(tokens(version))
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


class StockScript(unittest.TestCase):
    DATA = (ROOT / "program/SubMsgPlay_Alternate_Custom_Internal.cde").read_bytes()

    def test_checksum_line(self):
        # CRC-32 of all other lines as a signed number, never 0, with a blank in the place of the sign.
        lines = self.DATA.splitlines(keepends=True)
        self.assertTrue(all(line.endswith(b"\r\n") for line in lines))
        crc = zlib.crc32(b"".join(line for line in lines if not line.startswith(b"#CRC")))
        self.assertEqual([line.decode().rstrip() for line in lines if line.startswith(b"#CRC")],
                         ["#CRC " + format((crc ^ 1 << 31) - (1 << 31) or 1, " d")])

    def test_every_key_is_there_in_its_written_form(self):
        macros = self.DATA.decode("cp1252").partition("\r\n[MACROS]\r\n")[2].partition("\r\n[")[0]
        pairs = re.findall(r"^(\w+)=(.*)\r$", macros, re.M)
        values = dict(pairs)
        self.assertEqual(len(values), len(pairs))
        for prefix in PREFIXES + ("MSGMENU_",):
            keys, singles = [], []
            for token in (t for t in tokens(NEWEST) if t.startswith(prefix)):
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
