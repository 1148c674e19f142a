#!/usr/bin/env python3
"""Configures what tools/run takes, and fails if that has found something which the package group `build`
does not bring: a fresh machine has no more than that.

    packages_test.py FOLDER     FOLDER being where to configure
"""
import os
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
# What the toolkit's own files look for besides, and do without. Where to install is looked for nowhere.
OTHERS = re.compile(r"OPENGL_|Vulkan_|XKB_|PKG_CONFIG_|CMAKE_INSTALL_")


def output(*command):
    return subprocess.run(command, capture_output=True, text=True).stdout


def fresh_machine():
    """The packages of a machine that has the group and what it depends on, but no recommendations."""
    depends, providers, found = {}, {}, set()
    fields = "${Package}\t${Essential}\t${Priority}\t${Pre-Depends}, ${Depends}\t${Provides}\n"
    for line in output("dpkg-query", "-W", "-f", fields).splitlines():
        name, essential, priority, needs, provides = line.split("\t")
        depends[name] = [[re.split("[ :(]", choice.strip())[0] for choice in need.split("|")] for need in needs.split(",")]
        for provided in provides.split(","):
            providers.setdefault(provided.split("(")[0].strip(), name)
        if essential == "yes" or priority == "required":
            found.add(name)
    group = re.findall(r"^build +(\S+)", (ROOT / "tools/packages").read_text(), re.M)
    waiting = [*found, *group]
    while waiting:
        for need in depends.get(waiting.pop(), []):
            there = [name if name in depends else providers.get(name) for name in need]
            name = next(filter(None, there), None)
            if name and name not in found:
                found.add(name)
                waiting.append(name)
    return found.union(group)


def owners(path):
    """The packages that a file or folder is of, also by the name that it had before /usr took all in."""
    path = os.path.realpath(path)
    told = output("dpkg-query", "-S", path, path.removeprefix("/usr"))
    return {name.strip().split(":")[0] for line in told.splitlines() for name in line.rsplit(": ", 1)[0].split(",")}


def main():
    folder = pathlib.Path(sys.argv[1])
    configured = subprocess.run(["cmake", "--fresh", "--preset", "program", "-B", folder], cwd=ROOT,
                                capture_output=True, text=True)
    if configured.returncode:
        sys.exit(configured.stderr)
    there, looked_for, faults = fresh_machine(), 0, 0
    for name, path in re.findall(r"^([\w.+-]+):(?:FILE)?PATH=(/.*)", (folder / "CMakeCache.txt").read_text(), re.M):
        if OTHERS.match(name) or str(folder) in path or str(ROOT) in path:
            continue
        looked_for += 1
        if not owners(path) & there:
            print(f"{name} is {path}, of {', '.join(owners(path)) or 'no package'}: not in the group build")
            faults += 1
    print(f"{looked_for} places, {faults} that a fresh machine has not")
    sys.exit(1 if faults or not looked_for else 0)


if __name__ == "__main__":
    main()
