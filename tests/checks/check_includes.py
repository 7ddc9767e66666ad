#!/usr/bin/env python3
"""Checks the include rules that CMake's targets cannot enforce.

usage: check_includes.py SOURCE_FOLDER QT_WIDGETS_INCLUDE_FOLDER
"""
import re
import sys
from pathlib import Path

# Files of FOLDER may include no header of FORBIDDEN except the ones named.
RULES = [
    # folder, forbidden folder ("Qt widgets": headers of that library), exceptions, reason
    *((folder, "core/exports", ("iomap.h",), "only hosts include the exports")
      for folder in ("core", "persist", "pages", "dialog", "inspect")),
    ("inspect", "persist", ("blocklayout.h",), "the decoder is independent of the reader that it checks"),
    ("workbench/station", "Qt widgets", ("QUndoCommand", "QUndoStack"), "the model works without a window"),
]
SOURCE_FOLDERS = "host core persist pages dialog inspect tools workbench tests fuzz bench shots".split()
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')


def reason_against(path, quoted, name, folder_of, widget_headers):
    """Returns the reason why the file may not include the header; None if it may."""
    if quoted and "/" in name:
        return "headers are included by file name; CMake's targets name their folders"
    folder = path.parent.as_posix()
    target = folder_of.get(name) if quoted else "Qt widgets" if name in widget_headers else None
    for includer, forbidden, exceptions, reason in RULES:
        if folder == includer and target == forbidden and name not in exceptions:
            return reason
    return None


def main(source_folder, widgets_folder):
    root = Path(source_folder)
    paths = [path.relative_to(root) for folder in SOURCE_FOLDERS for path in sorted((root / folder).rglob("*"))
             if path.suffix in (".h", ".cpp")]
    folder_of = {path.name: path.parent.as_posix() for path in paths}
    widget_headers = {path.name for path in Path(widgets_folder).iterdir()}
    errors = checked = 0
    for path in paths:
        for number, line in enumerate((root / path).read_text(encoding="utf-8").splitlines(), 1):
            match = INCLUDE.match(line)
            if not match:
                continue
            checked += 1
            if reason := reason_against(path, match[1] == '"', match[2], folder_of, widget_headers):
                errors += 1
                print(f"{path}:{number}: {match[2]}: {reason}")
    print(f"{checked} includes in {len(paths)} files, {errors} of them not allowed")
    return errors > 0 or checked == 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
