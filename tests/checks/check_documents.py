#!/usr/bin/env python3
"""Checks that the names in the documentation exist: test programs and their functions, code, and linked files. Checks
also that the newest version of the changelog is the version of the project.

usage: check_documents.py SOURCE_FOLDER
"""
import re
import sys
from pathlib import Path

PROGRAM = re.compile(r"`((?:tst|fuzz)_\w+)`")
LINK = re.compile(r"\]\((?!https?:)([^)#]+)")
NAMES_IN_CODE = re.compile(r"`(\w+)(?:::(\w+))?`")
TESTS = re.compile(r"`(tst_\w+)` (\w+)")
PLUGIN_FOLDERS = ("core", "persist", "pages", "dialog")


def check_document(root, document):
    text = document.read_text("utf-8")
    for name in PROGRAM.findall(text):
        if not any((root / folder / f"{name}.cpp").exists() for folder in ("tests", "fuzz")):
            yield f"no program {name}"
    for link in LINK.findall(text):
        if not (document.parent / link).exists():
            yield f"no file {link}"


def check_oddities(root, document):
    """Each row has three cells: the oddity, its place in the code, and the test functions that verify it."""
    code = "".join(path.read_text("utf-8") for folder in PLUGIN_FOLDERS for path in (root / folder).rglob("*.[ch]*"))
    rows = [line for line in document.read_text("utf-8").splitlines() if line.startswith("| ") and "`tst_" in line]
    if not rows:
        yield "no rows"
    for row in rows:
        where, tests = row.strip("|").split("|")[-2:]
        for name in filter(None, (name for names in NAMES_IN_CODE.findall(where) for name in names)):
            if not re.search(rf"\b{name}\b", code):
                yield f"no {name} in the code"
        for program, function in TESTS.findall(tests):
            if not re.search(rf"\bvoid {function}\(", (root / "tests" / f"{program}.cpp").read_text("utf-8")):
                yield f"{program} has no function {function}"


def check_changelog(root):
    released = re.search(r"^## \[(\d[\d.]*)\]", (root / "CHANGELOG.md").read_text("utf-8"), re.MULTILINE)
    built = re.search(r"^project\(.*VERSION ([\d.]+)", (root / "CMakeLists.txt").read_text("utf-8"), re.MULTILINE)
    if released[1] != built[1]:
        yield f"the newest version is {released[1]}, but the version of the project is {built[1]}"


def main():
    root = Path(sys.argv[1])
    documents = [*root.glob("*.md"), *(root / "docs").glob("*.md")]
    errors = [f"{document.name}: {error}" for document in documents for error in check_document(root, document)]
    errors += [f"oddities.md: {error}" for error in check_oddities(root, root / "docs" / "oddities.md")]
    errors += [f"CHANGELOG.md: {error}" for error in check_changelog(root)]
    print("\n".join(errors) or f"{len(documents)} documents name only what exists")
    return 1 if errors else 0


if __name__ == "__main__":
    sys.exit(main())
