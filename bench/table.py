#!/usr/bin/env python3
"""Measures the editor and prints one table: what it does, beside the plain work, and the ratio.

usage: table.py BUILD_FOLDER

Every ratio is the median of pairs that were measured in turn, with the middle half of the pairs
behind it, which is the noise of the machine. Loads and saves are in time of the processor, on a
memory disk; Wine's calls and the start are in time that passes. A ratio beyond its bar makes the
exit status 1.
"""

import json
import os
import pathlib
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parents[1]
SCRIPTS = ROOT / "sandbox/merid-7.0-2.0/drive_c/Telhost/Localize/Scripts"
SLOT = ["Macros_MenuAlternate_Custom.cdh", "SubMsgPlay_Alternate_Custom.cde", "SubSetupMenu_Alternate1.cde"]
STARTS = 31

rows = []


def row(what, plain, ours, ratio, noise="", bar=None, least=False):
    met = bar is None or (ratio >= bar if least else ratio <= bar)
    limit = "" if bar is None else f"{'at least' if least else 'at most'} {bar:g}"
    rows.append((what, plain, ours, f"{ratio:.2f}", noise, limit, "" if met else "MISSED"))


def middle(values):
    low, _, high = statistics.quantiles(values, n=4)
    return f"{low:.2f} to {high:.2f}"


def size_name(size):
    return f"{size // 1024} KB" if size < 1 << 20 else f"{size >> 20} MB"


def slots(build):
    """Loading and saving a slot at each size; returns our times."""
    out = subprocess.run([build / "bench/benchmarks", "--benchmark_filter=Slot", "--benchmark_format=json"],
                         check=True, capture_output=True, text=True).stdout
    names = {"load": "load a slot", "save": "save a slot", "change": "save a changed key"}
    ours, ratios = {}, {}
    for result in json.loads(out)["benchmarks"]:
        name, size = result["name"].split("/")[:2]
        what, size = name.removesuffix("Slot").lower(), int(size)
        ours[what, size], ratios[what, size] = result["ours_us"], result["ratio"]
        bar = {("load", 1 << 20): 1.5, ("save", 1 << 20): 5, ("save", 1 << 17): 5}.get((what, size))
        row(f"{names[what]}, {size_name(size)} a file", f"{result['plain_us']:.0f} us",
            f"{result['ours_us']:.0f} us", result["ratio"], f"{result['low']:.2f} to {result['high']:.2f}", bar)
    for what in "load", "save":
        small, middle_size, large = 1 << 14, 1 << 20, 10 << 20
        growth = ours[what, large] / ours[what, small] / (large / small)
        row(f"{what}: growth from 16 KB to 10 MB, to the size's", f"{ours[what, small]:.0f} us",
            f"{ours[what, large]:.0f} us", growth, bar=1)
        row(f"{what}: growth from 1 MB to 10 MB, to the plain work's", f"{ratios[what, middle_size]:.2f}",
            f"{ratios[what, large]:.2f}", ratios[what, large] / ratios[what, middle_size], bar=2)
    return ours


def beside(build):
    """What stands beside the form: each step below a millisecond."""
    out = subprocess.run([build / "bench/benchmarks", "--benchmark_filter=Beside", "--benchmark_format=json"],
                         check=True, capture_output=True, text=True).stdout
    names = {"BesideFindings": "findings of all menus", "BesideKeypad": "keypad of a menu",
             "BesideKey": "a key pressed", "BesideSearch": "a search of all menus"}
    for result in json.loads(out)["benchmarks"]:
        if result["name"].startswith("BesideHistory"):
            row("history of 5,000 edits", "20 MB", f"{result['megabytes']:.1f} MB", result["megabytes"] / 20, bar=1)
            row("slowest of 4,000 steps back", "5000 us", f"{result['slowest_us']:.0f} us",
                result["slowest_us"] / 5000, bar=1)
            continue
        time_us = result["cpu_time"] / 1000
        row(names[result["name"]], "1000 us", f"{time_us:.0f} us", time_us / 1000, bar=1)


def grown(script, size):
    text, line = b"[CONVERSATION]\r\n", 0
    while len(text) + len(script) < size:
        text += b"STEP%d PLAY PROMPT_%d THEN WAIT 3 FOR KEY ELSE GOTO MENU\r\n" % (line, line * 7 % 1000)
        line += 1
    return text + script


def wine(build, ours):
    """The same keys by the profile calls of Wine."""
    compiler = shutil.which("x86_64-w64-mingw32-g++-posix") or shutil.which("x86_64-w64-mingw32-g++")
    if not compiler or not shutil.which("wine"):
        print("(no Wine or no mingw-w64 here: its profile calls are not compared)")
        return
    program = build / "ProfileCalls.exe"
    subprocess.run([compiler, "-O2", "-std=c++20", "-static", ROOT / "bench/ProfileCalls-win32.cpp", "-o", program],
                   check=True)
    times = []
    with tempfile.TemporaryDirectory() as folder:
        for _ in range(3):
            paths = []
            for name in SLOT:
                path = pathlib.Path(folder) / name
                path.write_bytes(grown((SCRIPTS / name).read_bytes(), 1 << 17))
                paths.append("Z:" + str(path).replace("/", "\\"))
            out = subprocess.run([ROOT / "tools/wine", program, *paths], check=True, capture_output=True, text=True).stdout
            times.append([float(part) for part in out.split()])
    for place, what in (1, "load"), (2, "save"):
        theirs = [each[place] for each in times]
        best = ours[what, 1 << 17]
        row(f"{what} {times[0][0]:.0f} keys by Wine's calls, 128 KB a file", f"{best:.0f} us (ours)",
            f"{statistics.median(theirs):.0f} us", statistics.median(theirs) / best,
            f"{min(theirs) / best:.2f} to {max(theirs) / best:.2f}", 100, least=True)


def first_paint(program, *arguments):
    environment = dict(os.environ, START=str(time.monotonic_ns()))
    out = subprocess.run([program, *arguments], env=environment, check=True, capture_output=True, text=True,
                         timeout=60).stdout
    return [int(part) for part in out.split()]


def starts(build):
    """From the start of the process to the first painted window, beside an empty window."""
    with tempfile.TemporaryDirectory() as folder:
        place = pathlib.Path(folder)
        shutil.copytree(build / "program", place, dirs_exist_ok=True)
        shutil.copytree(ROOT / "sandbox/merid-7.0-2.0", place, dirs_exist_ok=True)
        editor = place / "Dialwright"
        shutil.copy(build / "bench/first-paint-editor", editor)
        empty = build / "bench/first-paint-empty"
        size = [str(part) for part in first_paint(editor)[2:]]
        pairs = [(first_paint(empty, *size), first_paint(editor)) for _ in range(STARTS)]
    for place, what, unit, divisor, bar in (0, "start to the first painted window", "ms", 1000, 1.5), (
            1, "most memory by then", "MB", 1024, 1.5):
        plain, ours = [a[place] for a, _ in pairs], [b[place] for _, b in pairs]
        ratios = [b / a for a, b in zip(plain, ours)]
        row(f"{what} ({size[0]} x {size[1]})", f"{statistics.median(plain) / divisor:.1f} {unit}",
            f"{statistics.median(ours) / divisor:.1f} {unit}", statistics.median(ratios), middle(ratios), bar)


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    ours = slots(build)
    beside(build)
    wine(build, ours)
    if (build / "bench/first-paint-editor").exists():
        starts(build)
    heads = ("what", "plain", "editor", "ratio", "middle half", "bar", "")
    widths = [max(len(each[i]) for each in [heads, *rows]) for i in range(len(heads))]
    for each in [heads, *rows]:
        print("  ".join(text.ljust(width) for text, width in zip(each, widths)).rstrip())
    return 1 if any(each[-1] for each in rows) else 0


if __name__ == "__main__":
    sys.exit(main())
