#!/usr/bin/env python3
"""Checks the pages of the help and the help files compiled from them.

usage: check_help.py HELP_FOLDER ENGLISH_STRINGS_CPP PROGRAM_FOLDER CHMLS
"""

import html
import os
import re
import subprocess
import sys
import tempfile
from html.parser import HTMLParser

# Messages, or the fixed parts of messages, that do not come from the string table.
FIXED_MESSAGES = {
    "Error", "Error - could not find menu definition file=",
    "Error, could not load SubMsgPlayback script file=",
    "SubMsgPlay script file could not be found=",
    "Error - could not find stup menu definition file=",
    "File not found:",
    "You need to load the verson information before calling any of the path fetch routines.",
    "ERROR, invalid key name!",
    "(", "(error)", ") in procedure", "of Form frmMain", "of Form Form1", "of Module MeridVersion",
    ") in procedure UpdateChecksumForFile of Form Form1",
    "error in mymyLoadString:", "Error in FormLoad routine:",
    "Error in InitalizeLanguages:", "Error in MyIsNumber function:",
    "This will reset all key mappings to match the standard Merid conversation.  Are you sure you want to do this?",
    "This will reset all key mappings to match the Optional 1 conversation.  Are you sure you want to do this?",
    "This will reset all key mappings to match the Alternate Key Maping (N) conversation.  Are you sure you want to do this?",
    "This will reset all key mappings to match the Alternate Key Maping (S) conversation.  Are you sure you want to do this?",
    "This will reset all key mappings to match the Alternate Key Maping (X) conversation.  Are you sure you want to do this?",
    "This will reset all key mappings to match what Varlo uses internally.  Are you sure you want to do this?",
}

# Captions that stay as designed and are not in the string table.
FIXED_CAPTIONS = {
    "Select Key Map", "Dialwright", "Dialwright 2", "Dialwright 3",
    "Reset Key Mappings", "Standard Conversation", "Optional Conversation 1",
    "Alternate Key Mapping (N)", "Alternate Key Mapping (S)", "Alternate Key Mapping (X)",
    "Generate User Guide PDF",
    "Alternate Keypad Mapping (N)", "Alternate Keypad Mapping (S)", "Alternate Keypad Mapping (X)",
}

# Messages of the string table that each language's help has to quote.
QUOTED_MESSAGES = [
    1001, 1012, 1013, 1018, 1019, 1022, 1023, 1030, 1031, 1032, 1033, 1034, 1035, 1063, 1064, 1065,
    1077, 1087, 1099, 1100, 1146, 1147, 1148, 1150, 1151, 1152, 1155, 1169, 1170, 1174, 1175, 1176,
    1177, 1178, 1179, 1215, 1231,
]

# Labels of all actions, which each language's help has to name.
ACTION_LABELS = [
    1060, 1127, 1118, 1015, 1003, 1061, 1110, 1037, 1206, 1207, 1208, 1209, 1221, 1222, 1223, 1224,
    1016, 1116, 1109, 1079, 1135, 1044, 1217, 1119, 1101, 1045, 1131, 1129, 1130, 1026, 1114, 1054,
    1070, 1069, 1068, 1066, 1103, 1011, 1115, 1186, 1056, 1187, 1058, 1188, 1059, 1038, 1057, 1042,
    1043, 1185, 1184, 1183, 1220, 1236, 1111, 1125, 1053, 1124, 1028, 1010, 1123, 1039, 1192, 1229,
    1230,
]

COMPILED = {"en": ["Dialwright_ENU.chm", "Dialwright.chm"], "de": ["Dialwright_DEU.chm"]}
LANGUAGE_ID = {"en": "0x409", "de": "0x407"}
EMPTY_ELEMENTS = {"meta", "link", "br", "hr", "img"}
MARKED = {("samp", "msg"): "message", ("b", "ui"): "caption", ("span", "text"): "description"}

faults = []


def fault(where, text):
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
        self.titles, self.headings, self.anchors, self.links = [], [], [], []
        self.marked = []  # (kind, list of pieces between variable parts)
        self.charset = False
        with open(path, encoding="utf-8") as file:
            text = file.read()
        for mark in re.findall(r"&(?!(?:[A-Za-z]+|#\d+);)", text):
            fault(path, f"a bare {mark}")
        self.feed(text)
        self.close()
        for tag in self.open:
            fault(path, f"<{tag}> is not closed")
        if len(self.titles) != 1 or not self.title:
            fault(path, "needs one title")
        if [words(h) for h in self.headings] != [self.title]:
            fault(path, "its first heading is not its title")
        if not self.charset:
            fault(path, "does not name utf-8 as its encoding")
        for anchor in {a for a in self.anchors if self.anchors.count(a) > 1}:
            fault(path, f"the anchor {anchor} stands twice")

    @property
    def title(self):
        return words(self.titles[0]) if self.titles else ""

    def handle_starttag(self, tag, attributes):
        values = dict(attributes)
        if tag == "meta" and "charset=utf-8" in values.get("content", ""):
            self.charset = True
        if "id" in values:
            self.anchors.append(values["id"])
        for name in ("href", "src"):
            if name in values:
                self.links.append(values[name])
        if tag == "title":
            self.titles.append("")
        if tag == "h1":
            self.headings.append("")
        kind = MARKED.get((tag, values.get("class")))
        if tag == "samp" and kind is None:
            fault(self.path, "<samp> without the class of a message")
        if kind and self.inside is None:
            self.marked.append((kind, [""]))
            self.inside = len(self.open)
        elif tag in ("br", "var") and self.inside is not None:
            self.marked[-1][1].append("")
        if tag not in EMPTY_ELEMENTS:
            self.open.append(tag)

    def handle_endtag(self, tag):
        if not self.open or self.open[-1] != tag:
            fault(self.path, f"</{tag}> at line {self.getpos()[0]} closes nothing")
            return
        self.open.pop()
        if len(self.open) == self.inside:
            self.inside = None
        elif tag == "var" and self.inside is not None:
            self.marked[-1][1].append("")

    def handle_data(self, data):
        if "title" in self.open:
            self.titles[-1] += data
        if "h1" in self.open:
            self.headings[-1] += data
        if self.inside is not None and "var" not in self.open:
            self.marked[-1][1][-1] += data


def english_strings(path):
    """The rows of the string table: number to text."""
    with open(path, encoding="utf-8") as file:
        source = file.read()
    escapes = {"n": "\n", "r": "\r", "t": "\t"}
    table = {}
    for number, literals in re.findall(r'\{\s*(\d{4})\s*,\s*((?:"(?:[^"\\]|\\.)*"\s*)+)\}', source):
        text = "".join(re.findall(r'"((?:[^"\\]|\\.)*)"', literals))
        table[int(number)] = re.sub(r"\\(.)", lambda m: escapes.get(m[1], m[1]), text)
    return table


def site_map(path):
    """The entries of a contents or index file: (name, local)."""
    with open(path, "rb") as file:
        text = file.read()
    if any(byte > 127 for byte in text):
        fault(path, "holds bytes outside ASCII; write them as &#N;")
    text = text.decode("latin-1")
    entries = []
    for body in re.findall(r'<OBJECT type="text/sitemap">(.*?)</OBJECT>', text, re.S):
        values = dict(re.findall(r'<param name="(\w+)" value="([^"]*)">', body))
        entries.append((html.unescape(values.get("Name", "")), values.get("Local", "")))
    if text.count("<UL>") != text.count("</UL>") or text.count("<LI>") != text.count("</LI>"):
        fault(path, "its lists are not balanced")
    if not entries:
        fault(path, "has no entries")
    return entries


def project_file(path):
    sections, current = {}, None
    with open(path, encoding="ascii") as file:
        for line in file.read().split("\n"):
            if line.startswith("["):
                current = sections.setdefault(line.strip("[]"), [])
            elif line.strip() and current is not None:
                current.append(line.strip())
    options = dict(line.split("=", 1) for line in sections.get("OPTIONS", []))
    return options, sections.get("FILES", [])


def check_links(where, links, pages, own=""):
    for link in links:
        name, _, anchor = link.partition("#")
        name = name or own
        if name == "style.css":
            continue
        if name not in pages:
            fault(where, f"the link {link} leads nowhere")
        elif anchor and anchor not in pages[name].anchors:
            fault(where, f"the anchor of {link} is not there")


def check_texts(pages, table):
    messages = {words(t) for t in table.values()} | {words(t) for t in FIXED_MESSAGES}
    captions = {words(t.replace("&", "")) for t in table.values()} | FIXED_CAPTIONS
    quoted, named = set(), set()
    for page in pages.values():
        for kind, pieces in page.marked:
            pieces = [words(p) for p in pieces if words(p)]
            if not pieces:
                fault(page.path, f"an empty {kind}")
            known = captions if kind == "caption" else messages
            for piece in pieces:
                if piece not in known:
                    fault(page.path, f'the program has no {kind} "{piece}"')
            if kind == "message":
                quoted.update(pieces)
            if kind == "caption":
                named.update(pieces)
    return quoted, named


def check_compiled(chm, files, folder, chmls):
    if not os.path.isfile(chm):
        fault(chm, "is missing")
        return
    run = subprocess.run([chmls, "-n", "-p", "list", chm], capture_output=True, text=True)
    listed = {line.strip().lstrip("/") for line in run.stdout.splitlines() if line.startswith("/")}
    for name in files + ["dialwright.hhc", "dialwright.hhk"]:
        if name not in listed:
            fault(chm, f"does not hold {name}")
    if "$FIftiMain" not in listed:
        fault(chm, "has no full text index")
    with tempfile.TemporaryDirectory() as temporary:
        for name in files:
            copy = os.path.join(temporary, name)
            subprocess.run([chmls, "extract", chm, "/" + name, copy], capture_output=True)
            source = os.path.join(os.path.dirname(folder) if name == "style.css" else folder, name)
            with open(source, "rb") as file:
                wanted = file.read()
            found = open(copy, "rb").read() if os.path.isfile(copy) else None
            if found != wanted:
                fault(chm, f"its {name} is not the source's")


def check_language(language, folder, table, program_folder, chmls):
    names = sorted(n for n in os.listdir(folder) if n.endswith(".html"))
    pages = {n: Page(os.path.join(folder, n)) for n in names}
    for name, page in pages.items():
        check_links(page.path, page.links, pages, name)

    project = os.path.join(folder, "dialwright.hhp")
    options, files = project_file(project)
    if sorted(files) != sorted(names + ["style.css"]):
        fault(project, f"[FILES] and the folder differ: {sorted(set(files) ^ set(names + ['style.css']))}")
    for wanted in ("Contents file", "Index file"):
        if not os.path.isfile(os.path.join(folder, options.get(wanted, ""))):
            fault(project, f"{wanted} is not there")
    if options.get("Default topic") not in pages:
        fault(project, "the default topic is not there")
    if options.get("Compiled file") != COMPILED[language][0]:
        fault(project, f"the compiled file is not {COMPILED[language][0]}")
    if not options.get("Language", "").startswith(LANGUAGE_ID[language]):
        fault(project, f"the language is not {LANGUAGE_ID[language]}")
    if not options.get("Title"):
        fault(project, "has no title")

    contents_path = os.path.join(folder, "dialwright.hhc")
    contents = site_map(contents_path)
    check_links(contents_path, [local for _, local in contents], pages)
    titled = {(name, local) for name, local in contents}
    for name, page in pages.items():
        if (page.title, name) not in titled:
            fault(contents_path, f"does not lead to {name} under its title")
    index_path = os.path.join(folder, "dialwright.hhk")
    check_links(index_path, [local for _, local in site_map(index_path)], pages)

    quoted, named = check_texts(pages, table)
    for number in QUOTED_MESSAGES:
        if number not in table or words(table[number]) not in quoted:
            fault(folder, f"message {number} is not explained")
    for number in ACTION_LABELS:
        if number not in table or words(table[number]) not in named:
            fault(folder, f"action label {number} is not named")

    for compiled in COMPILED[language]:
        check_compiled(os.path.join(program_folder, compiled), files, folder, chmls)
    return len(pages)


def main():
    if len(sys.argv) != 5:
        sys.exit(__doc__)
    help_folder, strings, program_folder, chmls = sys.argv[1:]
    table = english_strings(strings)
    if len(table) < 200:
        fault(strings, f"only {len(table)} texts could be read")
    if not os.path.isfile(os.path.join(help_folder, "style.css")):
        fault(help_folder, "style.css is missing")
    pages = {language: check_language(language, os.path.join(help_folder, language), table, program_folder, chmls)
             for language in sorted(COMPILED)}
    for line in faults:
        print(line)
    print(f"{len(table)} texts, pages {pages}, {len(faults)} faults")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
