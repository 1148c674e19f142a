#!/usr/bin/env python3
"""Checks stock scripts: every key is there, in its written form, and no two conflict.

usage: stock_script_test.py SCRIPT...
"""

import re
import sys
import zlib

import saves

NEWEST = (9, 0, 0, 0)
SINGLE = ("_SLOWDOWN", "_SPEEDUP", "_PAUSE", "_VOLUME")
UNVOICED = ("MSGMENU_GOTO_ENABLE", "MSGMENU_GOTO_JUMPBACK", "MSGMENU_GOTO_JUMPFORWARD")


def checksum_line(lines):
    """The line that belongs to a script with these lines: CRC-32 as a signed number, never 0."""
    kept = [line for line in lines if not line.strip(" ").upper().startswith("#CRC")]
    value = zlib.crc32("".join(line + "\r\n" for line in kept).encode("cp1252"))
    value = (value - (1 << 32) if value >> 31 else value) or 1
    return "#CRC %s%d" % ("" if value < 0 else " ", value)


def faults(path):
    data = open(path, "rb").read()
    lines = data.decode("cp1252").split("\r\n")
    if lines.pop() != "" or re.search(rb"[^\r]\n|\r[^\n]", data):
        yield "a line does not end in carriage return and line feed"
    marks = [line for line in lines if line.startswith("#CRC")]
    if marks != [checksum_line(lines)]:
        yield "the checksum line is %s, not %s" % (marks, checksum_line(lines))

    section, values = None, {}
    for line in lines:
        section = line if line.startswith("[") else section
        name, equals, value = line.partition("=")
        if section == "[MACROS]" and equals and not line.startswith(";"):
            if name in values:
                yield "%s stands twice" % name
            values[name] = value
    yield from key_faults(values)


def key_faults(values):
    menus = {}
    for token in saves.tokens(NEWEST):
        prefix = token[:token.index("_") + 1]
        if prefix not in saves.PREFIXES + ("MSGMENU_",):
            continue
        written = re.fullmatch(r' "([0-9*#]{0,2})"', values.get(token, ""))
        if not written:
            yield "%s is %r" % (token, values.get(token))
            continue
        menus.setdefault(prefix, {})[token] = written[1]
        if prefix == "MSGMENU_":
            form = r"99999" if token in UNVOICED else r" \d+"
            if not re.fullmatch(form, values.get("ORDINAL_" + token, "")):
                yield "ORDINAL_%s is %r" % (token, values.get("ORDINAL_" + token))
    for prefix, menu in menus.items():
        used = [key for key in menu.values() if key]
        for key in sorted({key for key in used if used.count(key) > 1}):
            yield "%s has the key %s more than once" % (prefix, key)
        if prefix == "MSGMENU_":
            continue
        single = {t: k for t, k in menu.items() if k and any(s in t for s in SINGLE)}
        for token, key in single.items():
            if len(key) > 1 or any(len(k) == 2 and k[0] == key for k in used):
                yield "%s is on %s, which is or begins two digits" % (token, key)
    for mirror, token in (("RECEIPT_RESEND", "MSGMENU_REPLY"), ("RECEIPT_PLAY_ORIGINAL_MSG", "MSGMENU_FAX")):
        for start in ("", "ORDINAL_"):
            if values.get(start + mirror) != values.get(start + token):
                yield "%s is not the value of %s" % (start + mirror, token)


def main(paths):
    if not paths:
        sys.exit(__doc__)
    found = ["%s: %s" % (path, fault) for path in paths for fault in faults(path)]
    print("\n".join(found) or "%d scripts without fault" % len(paths))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
