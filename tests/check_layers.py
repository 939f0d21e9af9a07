"""Holds the architecture: which folder may include which, and that the engine knows no window toolkit.

A file's layer is its path: FOLDER/window/ and app/ are the window, everything else in FOLDER/ and cli/ is the engine.

Usage: check_layers.py SOURCE_DIRECTORY. Exit status 1 and a line for each breach.
"""

import pathlib
import re
import sys

# Folder -> the folders whose headers it may include, besides its own.
SUBJECTS = {
    "base": set(),
    "lexicon": {"base"},
    "search": {"base", "lexicon"},
    "results": {"base", "lexicon", "search"},
    "print": {"base", "lexicon", "search", "results", "settings"},
    "settings": {"base"},
    "lookup": {"base"},
}
ARROWS = SUBJECTS | {"app": set(SUBJECTS), "cli": set(SUBJECTS)}

# The files that may read and write JSON by its library, besides the command line's.
JSON_FILES = {"search/search_json.h", "search/search_json.cpp", "search/history.cpp"}

INCLUDE = re.compile(r'^\s*#include\s+(?:"([^"]+)"|<([^>]+)>)', re.MULTILINE)


def is_window(path: pathlib.PurePath) -> bool:
    return path.parts[0] == "app" or path.parts[1] == "window"


def breach_of(where: pathlib.PurePath, quoted: str, angled: str) -> str:
    """Why the file may not have this include; empty when it may."""
    folder = where.parts[0]
    if angled.startswith("nlohmann/") and folder != "cli" and where.as_posix() not in JSON_FILES:
        return "only the history and the command line know JSON"
    if angled:
        return "the engine includes a header of the window toolkit" if angled.startswith("Q") and not is_window(where) else ""
    target = pathlib.PurePath(quoted)
    if target.parts[0] not in ARROWS:
        return "a header is named by its path from the top"
    if is_window(target) and not is_window(where):
        return "the engine includes a window header"
    # Dialogs and panels may use the settings, too.
    allowed = ARROWS[folder] | {folder} | ({"settings"} if is_window(where) else set())
    return "" if target.parts[0] in allowed else f"no arrow leads from {folder} to {target.parts[0]}"


def check(root: pathlib.Path) -> list:
    breaches = []
    for folder in ARROWS:
        for path in sorted((root / folder).rglob("*")):
            if path.suffix not in (".h", ".cpp"):
                continue
            where = path.relative_to(root)
            for quoted, angled in INCLUDE.findall(path.read_text(encoding="utf-8")):
                if breach := breach_of(where, quoted, angled):
                    breaches.append(f"{where}: {quoted or angled}: {breach}")
    return breaches


def main() -> int:
    breaches = check(pathlib.Path(sys.argv[1]))
    for breach in breaches:
        print(breach)
    return 1 if breaches else 0


if __name__ == "__main__":
    sys.exit(main())
