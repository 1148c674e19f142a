#!/usr/bin/env python3
"""Checks the pages of the help and what is compiled from them: check_help.py SOURCE_ROOT PROGRAM_FOLDER CHMLS"""

import html
import pathlib
import re
import subprocess
import sys

# What the program puts together.
COMPOSED = {"of Form frmMain", "of Form Form1", "of Module MeridVersion", "error in mymyLoadString:",
            ") in procedure UpdateChecksumForFile of Form Form1"}
# Texts of the table that some procedures show in English whatever the language: the openings of failure reports, the
# refused version, the closing messages of four stock conversations.
ENGLISH_EVERYWHERE = {1001, 1035, 1151, 1176, 1177, 1178, 1179}

COMPILED = {"en": ["Dialwright_ENU.chm", "Dialwright.chm"], "de": ["Dialwright_DEU.chm"]}
LARGEST_PICTURE = 40 * 1024
MARKED = {"msg": "message", "ui": "caption", "text": "description", "en": "English text"}

faults = []


def require(holds, where, text):
    if not holds:
        faults.append(f"{where}: {text}")


def words(text):
    return " ".join(html.unescape(re.sub("<[^>]*>", "", text)).split())


class Page:
    def __init__(self, path):
        text = path.read_text("utf-8")
        told = subprocess.run(["tidy", "-q", "-e", "-utf8", path], capture_output=True, text=True).stderr
        for line in told.splitlines():
            require('lacks "summary"' in line, path, line)
        require("charset=utf-8" in text, path, "does not name utf-8 as its encoding")
        self.path = path
        self.title, *others = map(words, re.findall("<(?:title|h1)>(.*?)</", text, re.S))
        require(self.title and others == [self.title], path, "its heading is not its title")
        self.anchors = re.findall(' id="([^"]*)"', text)
        self.links = [html.unescape(link) for link in re.findall(' (?:href|src)="([^"]*)"', text)]
        # Each with its pieces between variable parts.
        self.marked = [(MARKED[kind], {words(piece) for piece in re.split("<br>|<var>.*?</var>", body)} - {""})
                       for kind, body in re.findall(r'<[a-z]+ class="(msg|ui|text|en)">(.*?)</(?:samp|b|span)>', text,
                                                    re.S)]
        # The steps that a failure report may name.
        table = text.partition('id="procedures"')[2].partition("</table>")[0]
        self.procedures = {name for cell in re.findall("<tr><td.*?</td>", table) for name in re.findall("<code>(.*?)</", cell)}


def table_of(paths, row):
    """A string table, number to text."""
    rows = [found for path in paths for found in re.findall(row, path.read_text("utf-8"), re.M)]
    return {int(number): words(text) for number, text in rows}


def with_pieces(texts):
    """The texts, and of those with places for something else also what stands between the places."""
    return texts | {words(piece) for text in texts if "%1" in text for piece in re.split("%[1-9]", text)}


def literals_of(root):
    """The texts in the sources: some messages and captions stand there."""
    literals = set(COMPOSED)
    for path in root.glob("src/**/*.cpp"):
        for pieces in re.findall(r'((?:"(?:[^"\\\n]|\\.)*"\s*)+)', path.read_text("utf-8")):
            text = "".join(re.findall(r'"((?:[^"\\]|\\.)*)"', pieces))
            literals.add(words(re.sub(r"\\(.)", r"\1", re.sub(r"\\[nrt]", " ", text))))
    return literals


def site_map(path):
    """The entries of a contents or index file: name and page."""
    text = path.read_text("ascii")
    entries = re.findall('sitemap"><param name="Name" value="([^"]*)"><param name="Local" value="([^"]*)">', text)
    require(len(entries) == text.count("<OBJECT") > 0, path, "an entry could not be read")
    return [(html.unescape(name), local) for name, local in entries]


def check_links(where, links, pages, own="", others=("style.css",)):
    for link in links:
        name, _, anchor = link.partition("#")
        page = pages.get(name or own)
        require(page or name in others, where, f"the link {link} leads nowhere")
        require(not page or not anchor or anchor in page.anchors, where, f"the anchor of {link} is not there")


def check_texts(folder, pages, known, labels):
    """`known` is what each kind of marked text may be, and `labels` are the rows that must be explained."""
    found = {kind: set() for kind in known}
    for page in pages.values():
        for kind, pieces in page.marked:
            require(pieces and pieces <= known[kind], page.path, f"the program has no {kind} {pieces - known[kind]}")
            found[kind] |= pieces
    require(labels <= found["caption"], folder, f"explains no {labels - found['caption']}")


def check_language(language, folder, known, labels, program_folder, chmls):
    pages = {path.name: Page(path) for path in sorted(folder.glob("*.html"))}
    pictures = {path.name: path.stat().st_size for path in folder.glob("*.png")}
    for name, page in pages.items():
        check_links(page.path, page.links, pages, name, ("style.css", *pictures))
    for name, size in pictures.items():
        require(size <= LARGEST_PICTURE, folder / name, f"has {size} bytes")
        require(any(name in page.links for page in pages.values()), folder / name, "no page shows it")

    project = folder / "dialwright.hhp"
    text = project.read_text("ascii")
    options = dict(re.findall(r"^([^\n=]+)=(.*)$", text, re.M))
    files = text.partition("[FILES]")[2].split()
    require(sorted(files) == sorted([*pages, *pictures, "style.css"]), project, "[FILES] and the folder differ")
    wanted = {"Contents file": "dialwright.hhc", "Index file": "dialwright.hhk", "Compiled file": COMPILED[language][0]}
    require(wanted.items() <= options.items(), project, f"is not for {wanted}")
    require(options.get("Default topic") in pages, project, "the default topic is not there")

    contents, index = site_map(folder / "dialwright.hhc"), site_map(folder / "dialwright.hhk")
    check_links(folder, [local for _, local in contents + index], pages)
    for name, page in pages.items():
        require((page.title, name) in contents, folder, f"its contents do not lead to {name} under its title")
    check_texts(folder, pages, known, labels)
    procedures = pages["failures.html"].procedures
    require(len(procedures) > 8 and procedures <= known["message"], folder, f"no report names {procedures - known['message']}")
    for chm in (program_folder / name for name in COMPILED[language]):
        listed = subprocess.run([chmls, "-n", "-p", "list", chm], capture_output=True, text=True).stdout.split()
        for name in (*files, "dialwright.hhc", "dialwright.hhk", "$FIftiMain"):
            require("/" + name in listed, chm, f"does not hold {name}")
    return len(pages)


def main():
    root, program_folder, chmls = map(pathlib.Path, sys.argv[1:])
    english = table_of(root.glob("src/language/*.inc"), r'^ENTRY\((\d{4}), "(.*)"\)$')
    tables = {"en": english, "de": table_of([root / "languages/DEU.rc"], r'^ *(\d{4}) "(.*)"$')}
    literals = literals_of(root)
    stays_english = literals - set(english.values()) | {english[number] for number in ENGLISH_EVERYWHERE}
    rows = re.findall(r'\{"\w+", (\d{4}), (\d{4}|0), ', (root / "src/keymap/CatalogueTables.cpp").read_text("utf-8"))
    require(len(rows) >= 70, "CatalogueTables.cpp", f"only {len(rows)} actions could be read")
    counts = {}
    for language, table in tables.items():
        texts = with_pieces(set(table.values())) | (literals if language == "en" else stays_english)
        known = {"caption": {text.replace("&", "") for text in texts}, "message": texts, "description": texts,
                 "English text": with_pieces(set(english.values())) | literals}
        labels = {table[int(number)] for row in rows for number in row if number != "0"}
        counts[language] = check_language(language, root / "program/help" / language, known, labels, program_folder, chmls)
    print(*faults, f"{len(english)} texts, pages {counts}, {len(faults)} faults", sep="\n")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
