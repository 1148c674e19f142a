#!/usr/bin/env python3
"""Checks a stock script: every key is there, in its written form, and no two conflict.

usage: stock_script_test.py SCRIPT
"""

import re
import sys
import zlib

import saves

NEWEST = (9, 0, 0, 0)
SINGLE = ("_SLOWDOWN", "_SPEEDUP", "_PAUSE", "_VOLUME")
UNVOICED = ("MSGMENU_GOTO_ENABLE", "MSGMENU_GOTO_JUMPBACK", "MSGMENU_GOTO_JUMPFORWARD")


def faults(data):
    lines = data.decode("cp1252").split("\r\n")
    if lines.pop() != "" or re.search(rb"[^\r]\n|\r[^\n]", data):
        yield "a line does not end in carriage return and line feed"
    # CRC-32 of all other lines as a signed number, never 0, with a blank in the place of the sign.
    marks = [line for line in lines if line.startswith("#CRC")]
    crc = zlib.crc32("".join(line + "\r\n" for line in lines if line not in marks).encode("cp1252"))
    wanted = "#CRC %s" % format((crc ^ 1 << 31) - (1 << 31) or 1, " d")
    if marks != [wanted]:
        yield "the checksum line is %s, not %s" % (marks, wanted)

    values, section = {}, None
    for line in lines:
        section = line if line.startswith("[") else section
        name, equals, value = line.partition("=")
        if section == "[MACROS]" and equals and not line.startswith(";"):
            if name in values:
                yield "%s stands twice" % name
            values[name] = value
    yield from key_faults(values)


def key_faults(values):
    for prefix in saves.PREFIXES + ("MSGMENU_",):
        menu = {}
        for token in (t for t in saves.tokens(NEWEST) if t.startswith(prefix)):
            written = re.fullmatch(r' "([0-9*#]{0,2})"', values.get(token, ""))
            if not written:
                yield "%s is %r" % (token, values.get(token))
                continue
            menu[token] = written[1]
            order = values.get("ORDINAL_" + token, "")
            if prefix == "MSGMENU_" and not re.fullmatch("99999" if token in UNVOICED else r" \d+", order):
                yield "ORDINAL_%s is %r" % (token, order)
        used = [key for key in menu.values() if key]
        yield from ("%s has the key %s more than once" % (prefix, key) for key in set(used) if used.count(key) > 1)
        for token, key in menu.items():
            if key and any(part in token for part in SINGLE) and (len(key) > 1 or any(k[0] == key != k for k in used)):
                yield "%s is on %s, which is or begins two digits" % (token, key)
    for mirror, token in (("RECEIPT_RESEND", "MSGMENU_REPLY"), ("RECEIPT_PLAY_ORIGINAL_MSG", "MSGMENU_FAX")):
        for start in ("", "ORDINAL_"):
            if values.get(start + mirror) != values.get(start + token):
                yield "%s is not the value of %s" % (start + mirror, token)


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    with open(sys.argv[1], "rb") as file:
        found = list(faults(file.read()))
    sys.exit("\n".join(found) or 0)
