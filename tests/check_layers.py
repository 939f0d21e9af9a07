"""Holds the architecture: which folder may include which, and that the engine knows no window toolkit.

Usage: check_layers.py SOURCE_DIRECTORY. Exit status 1 and a line for each breach.
"""

import pathlib
import re
import sys

# Folder -> the folders whose headers it may include, besides its own.
ARROWS = {
    "base": set(),
    "lexicon": {"base"},
    "search": {"base", "lexicon"},
    "results": {"base", "lexicon", "search"},
    "print": {"base", "lexicon", "search", "results", "settings"},
    "settings": {"base"},
    "lookup": {"base"},
    "app": {"base", "lexicon", "search", "results", "print", "settings", "lookup"},
}
# Dialogs and panels may use the settings, too.
WINDOW_EXTRA = {"settings"}

INCLUDE = re.compile(r'^\s*#include\s+(?:"([^"]+)"|<([^>]+)>)', re.MULTILINE)


def engine_sources(folder: pathlib.Path) -> set:
    """The files that the folder's engine target lists."""
    text = (folder / "CMakeLists.txt").read_text()
    return {name for name in re.findall(r"[\w/]+\.(?:cpp|h)", text)}


def check(root: pathlib.Path) -> list:
    breaches = []
    for name, allowed in ARROWS.items():
        folder = root / name
        engine = engine_sources(folder / "cli" if name == "app" else folder)
        for path in sorted(folder.rglob("*")):
            if path.suffix not in (".h", ".cpp"):
                continue
            where = path.relative_to(root)
            is_engine = path.name in engine and (name != "app" or path.parent.name == "cli")
            if is_engine and (path.name.startswith("frm_") or path.stem.endswith(("_panel", "_model"))):
                breaches.append(f"{where}: named like a window file but built into the engine")
            may = allowed | {name} | (set() if is_engine else WINDOW_EXTRA)
            for quoted, angled in INCLUDE.findall(path.read_text(encoding="utf-8")):
                if quoted and "/" in quoted and quoted.split("/")[0] in ARROWS and quoted.split("/")[0] not in may:
                    breaches.append(f"{where}: {name} may not include {quoted}")
                if is_engine and angled.startswith("Q"):
                    breaches.append(f"{where}: the engine includes <{angled}>")
    return breaches


def main() -> int:
    breaches = check(pathlib.Path(sys.argv[1]))
    for breach in breaches:
        print(breach)
    return 1 if breaches else 0


if __name__ == "__main__":
    sys.exit(main())
