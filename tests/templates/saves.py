"""What a save offers to a template: the rows of a server's grids, version by version."""

import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
PREFIXES = ("HEADER_", "BODY_", "FOOTER_")
# The rows of the two menus of setup options, which no grid has.
SETUP = ("MAIN_GREETINGS MAIN_MESSAGE_SETTINGS MAIN_PERSONAL_SETTINGS MESSAGE_SETTINGS_NOTIFICATION "
         "MESSAGE_SETTINGS_FAX MESSAGE_SETTINGS_MENU_STYLE MESSAGE_SETTINGS_PRIVATE_LIST").split()


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
