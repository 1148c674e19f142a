"""What the program knows of actions, setup options, page templates and English texts (tools/catalogue.cpp).

`load()` gives it as a namespace: main, playback, after, globals are lists of actions, strings a dictionary.
"""
import json
import os
import pathlib
import subprocess
import types

ROOT = pathlib.Path(__file__).resolve().parent.parent


def load():
    program = os.environ.get("DIALWRIGHT_CATALOGUE")
    if not program:
        subprocess.run([ROOT / "tools/build", "release", "catalogue"], check=True)
        program = ROOT / "build/release/tests/catalogue"
    told = subprocess.run([program], stdout=subprocess.PIPE, check=True).stdout
    found = json.loads(told, object_hook=lambda row: types.SimpleNamespace(**row))
    found.strings = dict(found.strings)
    for row in (*found.main, *found.playback, *found.after, *found.globals, *found.templates):
        row.since = tuple(row.since)
    found.newerLabelsSince = tuple(found.newerLabelsSince)
    found.setupDocumentSince = tuple(found.setupDocumentSince)
    return found
