#!/usr/bin/env python3
"""Checks the pages of the help and the help files compiled from them.

usage: check_help.py HELP_FOLDER ENGLISH_STRINGS_CPP PROGRAM_FOLDER CHMLS
"""

import html
import pathlib
import re
import subprocess
import sys
import tempfile
from html.parser import HTMLParser

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

# Labels of all actions, which each language's help has to name.
ACTION_LABELS = {
    1003, 1010, 1011, 1015, 1016, 1026, 1028, 1037, 1038, 1039, 1042, 1043, 1044, 1045, 1053, 1054, 1056, 1057,
    1058, 1059, 1060, 1061, 1066, 1068, 1069, 1070, 1079, 1101, 1103, 1109, 1110, 1111, 1114, 1115, 1116, 1118,
    1119, 1123, 1124, 1125, 1127, 1129, 1130, 1131, 1135, *range(1183, 1189), 1192, *range(1206, 1210), 1217,
    *range(1220, 1225), 1229, 1230, 1236}

COMPILED = {"en": ["Dialwright_ENU.chm", "Dialwright.chm"], "de": ["Dialwright_DEU.chm"]}
LANGUAGE_ID = {"en": "0x409", "de": "0x407"}
EMPTY_ELEMENTS = {"meta", "link", "br", "hr", "img"}
MARKED = {("samp", "msg"): "message", ("b", "ui"): "caption", ("span", "text"): "description"}

faults = []


def require(holds, where, text):
    if not holds:
        faults.append(f"{where}: {text}")


def words(text):
    return " ".join(text.split())


class Page(HTMLParser):
    """One page: its title, headings, anchors, links and marked texts; unbalanced tags are faults."""

    def __init__(self, path):
        super().__init__(convert_charrefs=True)
        self.path = path
        self.open = []
        self.inside = None  # depth of the marked element that is open
        self.texts = {"title": [], "h1": []}
        self.anchors, self.links = [], []
        self.marked = []  # (kind, list of pieces between variable parts)
        text = path.read_text("utf-8")
        require(not re.search(r"&(?!([A-Za-z]+|#\d+);)", text), path, "a bare &")
        require("charset=utf-8" in text, path, "does not name utf-8 as its encoding")
        self.feed(text)
        self.close()
        require(not self.open, path, f"{self.open} is not closed")
        titles, headings = ([words(t) for t in self.texts[tag]] for tag in ("title", "h1"))
        require(len(titles) == 1 and titles[0], path, "needs one title")
        require(headings == titles, path, "its first heading is not its title")
        require(len(set(self.anchors)) == len(self.anchors), path, "an anchor stands twice")
        self.title = titles[0] if titles else ""

    def handle_starttag(self, tag, attributes):
        values = dict(attributes)
        self.anchors += [values["id"]] if "id" in values else []
        self.links += [values[name] for name in ("href", "src") if name in values]
        if tag in self.texts:
            self.texts[tag].append("")
        kind = MARKED.get((tag, values.get("class")))
        require(tag != "samp" or kind, self.path, "<samp> without the class of a message")
        if kind and self.inside is None:
            self.marked.append((kind, [""]))
            self.inside = len(self.open)
        elif tag in ("br", "var") and self.inside is not None:
            self.marked[-1][1].append("")
        if tag not in EMPTY_ELEMENTS:
            self.open.append(tag)

    def handle_endtag(self, tag):
        if self.open[-1:] != [tag]:
            require(False, self.path, f"</{tag}> at line {self.getpos()[0]} closes nothing")
            return
        self.open.pop()
        if len(self.open) == self.inside:
            self.inside = None
        elif tag == "var" and self.inside is not None:
            self.marked[-1][1].append("")

    def handle_data(self, data):
        for tag in set(self.open) & set(self.texts):
            self.texts[tag][-1] += data
        if self.inside is not None and "var" not in self.open:
            self.marked[-1][1][-1] += data


def english_strings(path):
    """The rows of the string table: number to text."""
    escapes = {"n": "\n", "r": "\r", "t": "\t"}
    rows = re.findall(r'\{\s*(\d{4})\s*,\s*((?:"(?:[^"\\]|\\.)*"\s*)+)\}', path.read_text("utf-8"))
    texts = {int(number): "".join(re.findall(r'"((?:[^"\\]|\\.)*)"', literals)) for number, literals in rows}
    require(len(texts) >= 200, path, f"only {len(texts)} texts could be read")
    return {number: re.sub(r"\\(.)", lambda m: escapes.get(m[1], m[1]), text) for number, text in texts.items()}


def site_map(path):
    """The entries of a contents or index file: (name, local)."""
    text = path.read_bytes().decode("latin-1")
    require(text.isascii(), path, "holds bytes outside ASCII; write them as &#N;")
    entries = []
    for body in re.findall(r'<OBJECT type="text/sitemap">(.*?)</OBJECT>', text, re.S):
        values = dict(re.findall(r'<param name="(\w+)" value="([^"]*)">', body))
        entries.append((html.unescape(values.get("Name", "")), values.get("Local", "")))
    for tag in ("UL", "LI"):
        require(text.count(f"<{tag}>") == text.count(f"</{tag}>"), path, "its lists are not balanced")
    require(entries, path, "has no entries")
    return entries


def check_links(where, links, pages, own=""):
    for link in links:
        name, _, anchor = link.partition("#")
        page = pages.get(name or own)
        require(page or name == "style.css", where, f"the link {link} leads nowhere")
        require(not page or not anchor or anchor in page.anchors, where, f"the anchor of {link} is not there")


def check_texts(folder, pages, table):
    known = {"caption": {words(t.replace("&", "")) for t in table.values()} | FIXED_CAPTIONS,
             "message": {words(t) for t in set(table.values()) | FIXED_MESSAGES}}
    known["description"] = known["message"]
    found = {kind: set() for kind in known}
    for page in pages.values():
        for kind, pieces in page.marked:
            pieces = {words(p) for p in pieces} - {""}
            require(pieces, page.path, f"an empty {kind}")
            require(pieces <= known[kind], page.path, f"the program has no {kind} {pieces - known[kind]}")
            found[kind] |= pieces
    for kind, numbers in ("message", QUOTED_MESSAGES), ("caption", ACTION_LABELS):
        for number in numbers:
            require(words(table.get(number, "?")) in found[kind], folder, f"{kind} {number} is not explained")


def check_compiled(chm, files, folder, chmls):
    listed = subprocess.run([chmls, "-n", "-p", "list", chm], capture_output=True, text=True).stdout.split()
    for name in ("/dialwright.hhc", "/dialwright.hhk", "/$FIftiMain"):
        require(name in listed, chm, f"does not hold {name}")
    with tempfile.TemporaryDirectory() as temporary:
        for name in files:
            copy = pathlib.Path(temporary, name)
            subprocess.run([chmls, "extract", chm, "/" + name, copy], capture_output=True)
            source = (folder.parent if name == "style.css" else folder) / name
            require(copy.is_file() and copy.read_bytes() == source.read_bytes(), chm, f"its {name} is not the source's")


def check_language(language, folder, table, program_folder, chmls):
    pages = {path.name: Page(path) for path in sorted(folder.glob("*.html"))}
    for name, page in pages.items():
        check_links(page.path, page.links, pages, name)

    project = folder / "dialwright.hhp"
    text = project.read_text("ascii")
    options = dict(re.findall(r"^([^\n=]+)=(.*)$", text, re.M))
    files = text.partition("[FILES]")[2].partition("[")[0].split()
    require(sorted(files) == sorted([*pages, "style.css"]), project, "[FILES] and the folder differ")
    wanted = {"Contents file": "dialwright.hhc", "Index file": "dialwright.hhk", "Compiled file": COMPILED[language][0]}
    require(wanted.items() <= options.items(), project, f"is not for {wanted}")
    require(options.get("Default topic") in pages, project, "the default topic is not there")
    require(options.get("Language", "").startswith(LANGUAGE_ID[language]), project, "is in another language")
    require(options.get("Title"), project, "has no title")

    contents, index = site_map(folder / "dialwright.hhc"), site_map(folder / "dialwright.hhk")
    check_links(folder, [local for _, local in contents + index], pages)
    for name, page in pages.items():
        require((page.title, name) in contents, folder, f"its contents do not lead to {name} under its title")
    check_texts(folder, pages, table)
    for compiled in COMPILED[language]:
        check_compiled(program_folder / compiled, files, folder, chmls)
    return len(pages)


def main():
    if len(sys.argv) != 5:
        sys.exit(__doc__)
    help_folder, strings, program_folder = (pathlib.Path(argument) for argument in sys.argv[1:4])
    table = english_strings(strings)
    pages = {language: check_language(language, help_folder / language, table, program_folder, sys.argv[4])
             for language in COMPILED}
    print(*faults, f"{len(table)} texts, pages {pages}, {len(faults)} faults", sep="\n")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
