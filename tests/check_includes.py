#!/usr/bin/env python3
"""Checks which folder includes which: every #include of every source against the table below.

usage: check_includes.py SOURCE_FOLDER QT_WIDGETS_INCLUDE_FOLDER
"""
import re
import sys
from pathlib import Path

# A room is a folder; a few files are rooms of their own.
SINGLE_FILES = {
    "core/simpleextendexportfunc.h": "the export header",
    "core/simpleextendexportfunc.cpp": "the roof",
    "persist/bytereader.h": "the byte cursors",
    "persist/blockwriter.h": "the byte cursors",
    "tools/blockinspect/blockdecoder.h": "the inspector's decoder",
    "tools/blockinspect/blockreport.h": "the inspector's decoder",
    "host/include/simulatedbase.h": "the simulation's controls",
    "host/include/simulatedhelp.h": "the simulation's controls",
    "host/include/simulatedhost.h": "the simulation's controls",
    "host/include/baseservices.h": "the host's services",
}
FOLDERS = ["host/include", "host", "core", "persist", "pages", "dialog", "workbench", "tools", "tests", "fuzz",
           "bench"]

PLUGIN_HOST = {"the host's services", "host/include"}
ANYTHING = set(FOLDERS) | set(SINGLE_FILES.values())
# Room -> rooms that it may include beside itself.
MAY_ENTER = {
    "host/include": {"the host's services", "the simulation's controls"},
    "the host's services": set(),
    "the simulation's controls": PLUGIN_HOST,
    "host": PLUGIN_HOST | {"the simulation's controls"},
    "core": PLUGIN_HOST,
    "the export header": {"core"},
    "the roof": PLUGIN_HOST | {"core", "the export header", "persist", "the byte cursors", "pages", "dialog"},
    "the byte cursors": {"the host's services"},
    "persist": PLUGIN_HOST | {"core", "the byte cursors"},
    "pages": PLUGIN_HOST | {"core"},
    "dialog": PLUGIN_HOST | {"core", "pages"},
    "workbench": PLUGIN_HOST | {"the simulation's controls", "the export header", "the inspector's decoder"},
    "the inspector's decoder": set(),
    "tools": PLUGIN_HOST | {"core", "persist", "the byte cursors", "the inspector's decoder"},
    "tests": ANYTHING,
    "fuzz": ANYTHING - {"bench"},
    "bench": ANYTHING - {"tests", "fuzz"},
}
WITHOUT_WIDGETS = {"core", "persist", "the byte cursors", "the export header"}
WIDGET_HEADERS_OF_THE_HOST = {"host/include/basemodule.h", "host/include/basewidgets.h"}

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')


def room_of(path):
    if path in SINGLE_FILES:
        return SINGLE_FILES[path]
    return next(folder for folder in FOLDERS if path.startswith(folder + "/"))


def resolve(name, includer, paths):
    """The project's file that an #include names, or None: beside the includer, else by the end of its path."""
    beside = (Path(includer).parent / name).as_posix()
    if beside in paths:
        return beside
    wanted = re.sub(r"^(\.\./)+", "", name)
    return next((path for path in sorted(paths) if path == wanted or path.endswith("/" + wanted)), None)


def complaint(room, name, quoted, target, is_widget_header):
    """Why a file of this room may not include that header, or None."""
    if target is None:
        if room in WITHOUT_WIDGETS and is_widget_header:
            return f"{name} is a widgets' header, and {room} must do without"
        if quoted and not name.endswith(".moc"):
            return f"{name} is no file of the project"
        return None
    if room in WITHOUT_WIDGETS and target in WIDGET_HEADERS_OF_THE_HOST:
        return f"{target} brings widgets, and {room} must do without; baseservices.h has the services"
    other = room_of(target)
    if other != room and other not in MAY_ENTER[room]:
        return f"{room} may not include {target} ({other})"
    return None


def main(source_folder, widgets_folder):
    root = Path(source_folder)
    paths = {path.relative_to(root).as_posix() for folder in FOLDERS for path in (root / folder).rglob("*")
             if path.suffix in (".h", ".cpp")}
    complaints = checked = 0
    for path in sorted(paths):
        for number, line in enumerate((root / path).read_text(encoding="utf-8").splitlines(), 1):
            match = INCLUDE.match(line)
            if not match:
                continue
            checked += 1
            quoted, name = match[1] == '"', match[2]
            is_widget_header = name.startswith("QtWidgets") or (Path(widgets_folder) / name).is_file()
            why = complaint(room_of(path), name, quoted, resolve(name, path, paths), is_widget_header)
            if why:
                complaints += 1
                print(f"{path}:{number}: {why}")
    print(f"{checked} includes in {len(paths)} files, {complaints} of them not allowed")
    return complaints > 0 or checked == 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
