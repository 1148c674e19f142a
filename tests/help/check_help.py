#!/usr/bin/env python3
"""Checks the pages of the help and the help files compiled from them.

usage: check_help.py SOURCE_ROOT PROGRAM_FOLDER CHMLS
"""

import html
import pathlib
import re
import subprocess
import sys

# Messages, or the fixed parts of messages, that do not come from the string table.
RESET = "This will reset all key mappings to match %s.  Are you sure you want to do this?"
FIXED_MESSAGES = {
    "Error", "Error - could not find menu definition file=", "Error, could not load SubMsgPlayback script file=",
    "SubMsgPlay script file could not be found=", "Error - could not find stup menu definition file=",
    "File not found:", "ERROR, invalid key name!",
    "You need to load the verson information before calling any of the path fetch routines.",
    "(", "(error)", ") in procedure", "of Form frmMain", "of Form Form1", "of Module MeridVersion",
    ") in procedure UpdateChecksumForFile of Form Form1", "error in mymyLoadString:", "Error in FormLoad routine:",
    "Error in InitalizeLanguages:", "Error in MyIsNumber function:", RESET % "what Varlo uses internally",
    RESET % "the standard Merid conversation", RESET % "the Optional 1 conversation",
} | {RESET % f"the Alternate Key Maping ({letter}) conversation" for letter in "NSX"}

# Captions that stay as designed and are not in the string table.
FIXED_CAPTIONS = {
    "Select Key Map", "Dialwright", "Dialwright 2", "Dialwright 3", "Reset Key Mappings", "Standard Conversation",
    "Optional Conversation 1", "Generate User Guide PDF",
} | {f"Alternate {kind} Mapping ({letter})" for kind in ("Key", "Keypad") for letter in "NSX"}

# Messages of the string table that each language's help has to quote.
QUOTED_MESSAGES = {
    1001, 1012, 1013, 1018, 1019, 1022, 1023, *range(1030, 1036), 1063, 1064, 1065, 1077, 1087, 1099, 1100, 1146,
    1147, 1148, 1150, 1151, 1152, 1155, 1169, 1170, *range(1174, 1180), 1215, 1231}

COMPILED = {"en": ["Dialwright_ENU.chm", "Dialwright.chm"], "de": ["Dialwright_DEU.chm"]}
LANGUAGE_ID = {"en": "0x409", "de": "0x407"}
MARKED = {"samp": "message", "b": "caption", "span": "description"}

faults = []


def require(holds, where, text):
    if not holds:
        faults.append(f"{where}: {text}")


def words(text):
    return " ".join(html.unescape(re.sub("<[^>]*>", "", text)).split())


class Page:
    """One page: its title, anchors, links and marked texts."""

    def __init__(self, path):
        text = path.read_text("utf-8")
        told = subprocess.run(["tidy", "-q", "-e", "-utf8", path], capture_output=True, text=True).stderr.splitlines()
        for line in told:
            require('lacks "summary"' in line, path, line)
        require("charset=utf-8" in text, path, "does not name utf-8 as its encoding")
        require("<samp>" not in text, path, "<samp> without the class of a message")
        self.path = path
        self.title, *others = map(words, re.findall("<(?:title|h1)>(.*?)</", text, re.S))
        require(self.title and others == [self.title], path, "its heading is not its title")
        self.anchors = re.findall(' id="([^"]*)"', text)
        self.links = [html.unescape(link) for link in re.findall(' (?:href|src)="([^"]*)"', text)]
        # Each with its pieces between variable parts.
        self.marked = [(MARKED[tag], [words(piece) for piece in re.split("<br>|<var>.*?</var>", body)])
                       for tag, body in re.findall(r'<(samp|b|span) class="(?:msg|ui|text)">(.*?)</\1>', text, re.S)]


def english_strings(path):
    """The rows of the string table: number to text."""
    escapes = {"n": "\n", "r": "\r", "t": "\t"}
    rows = re.findall(r'\{\s*(\d{4})\s*,\s*((?:"(?:[^"\\]|\\.)*"\s*)+)\}', path.read_text("utf-8"))
    texts = {int(number): "".join(re.findall(r'"((?:[^"\\]|\\.)*)"', literals)) for number, literals in rows}
    require(len(texts) >= 200, path, f"only {len(texts)} texts could be read")
    return {number: re.sub(r"\\(.)", lambda m: escapes.get(m[1], m[1]), text) for number, text in texts.items()}


def action_labels(path):
    """The numbers of the labels of all actions, those for older servers included."""
    rows = re.findall(r'\{"\w+", (\d{4}), (\d{4}|0), ', path.read_text("utf-8"))
    require(len(rows) >= 70, path, f"only {len(rows)} actions could be read")
    return {int(number) for row in rows for number in row} - {0}


def site_map(path):
    """The entries of a contents or index file: (name, local)."""
    text = path.read_text("ascii")
    entries = re.findall('sitemap"><param name="Name" value="([^"]*)"><param name="Local" value="([^"]*)">', text)
    require(len(entries) == text.count("<OBJECT") > 0, path, "an entry could not be read")
    for tag in ("UL", "LI"):
        require(text.count(f"<{tag}>") == text.count(f"</{tag}>"), path, "its lists are not balanced")
    return [(html.unescape(name), local) for name, local in entries]


def check_links(where, links, pages, own=""):
    for link in links:
        name, _, anchor = link.partition("#")
        page = pages.get(name or own)
        require(page or name == "style.css", where, f"the link {link} leads nowhere")
        require(not page or not anchor or anchor in page.anchors, where, f"the anchor of {link} is not there")


def check_texts(folder, pages, table, labels):
    known = {"caption": {words(t.replace("&", "")) for t in table.values()} | FIXED_CAPTIONS,
             "message": {words(t) for t in set(table.values()) | FIXED_MESSAGES}}
    known["description"] = known["message"]
    found = {kind: set() for kind in known}
    for page in pages.values():
        for kind, pieces in page.marked:
            require(any(pieces), page.path, f"an empty {kind}")
            pieces = set(pieces) - {""}
            require(pieces <= known[kind], page.path, f"the program has no {kind} {pieces - known[kind]}")
            found[kind] |= pieces
    for kind, numbers in ("message", QUOTED_MESSAGES), ("caption", labels):
        for number in numbers:
            require(words(table.get(number, "?")) in found[kind], folder, f"{kind} {number} is not explained")


def check_language(language, folder, table, labels, program_folder, chmls):
    pages = {path.name: Page(path) for path in sorted(folder.glob("*.html"))}
    for name, page in pages.items():
        check_links(page.path, page.links, pages, name)

    project = folder / "dialwright.hhp"
    text = project.read_text("ascii")
    options = dict(re.findall(r"^([^\n=]+)=(.*)$", text, re.M))
    files = text.partition("[FILES]")[2].split()
    require(sorted(files) == sorted([*pages, "style.css"]), project, "[FILES] and the folder differ")
    wanted = {"Contents file": "dialwright.hhc", "Index file": "dialwright.hhk", "Compiled file": COMPILED[language][0]}
    require(wanted.items() <= options.items(), project, f"is not for {wanted}")
    require(options.get("Default topic") in pages, project, "the default topic is not there")
    require(options.get("Language", "").startswith(LANGUAGE_ID[language]), project, "is in another language")

    contents, index = site_map(folder / "dialwright.hhc"), site_map(folder / "dialwright.hhk")
    check_links(folder, [local for _, local in contents + index], pages)
    for name, page in pages.items():
        require((page.title, name) in contents, folder, f"its contents do not lead to {name} under its title")
    check_texts(folder, pages, table, labels)
    for chm in (program_folder / name for name in COMPILED[language]):
        listed = subprocess.run([chmls, "-n", "-p", "list", chm], capture_output=True, text=True).stdout.split()
        for name in (*files, "dialwright.hhc", "dialwright.hhk", "$FIftiMain"):
            require("/" + name in listed, chm, f"does not hold {name}")
    return len(pages)


def main():
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    root, program_folder = map(pathlib.Path, sys.argv[1:3])
    table = english_strings(root / "src/language/EnglishStrings.cpp")
    labels = action_labels(root / "src/keymap/CatalogueTables.cpp")
    pages = {language: check_language(language, root / "program/help" / language, table, labels, program_folder,
                                      sys.argv[3]) for language in COMPILED}
    print(*faults, f"{len(table)} texts, pages {pages}, {len(faults)} faults", sep="\n")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
