#!/usr/bin/env python3
"""Prints how many lines of code the tests have, and how many everything else has.

Counts the lines of C++, form, Python, shell and CMake files under version control that are neither empty nor comments.
The tests are the files in tests/. Exit status 1: the tests have more than a third of the lines of everything else.
"""
import re
import subprocess
import sys
from pathlib import Path

MAXIMUM_SHARE = 1 / 3
# Name of the language, pattern of its files, pattern of its comments.
LANGUAGES = [
    ("C++", r"\.(cpp|h|h\.in)$", r"//[^\n]*|/\*.*?\*/"),
    ("forms", r"\.ui$", r"<!--.*?-->"),
    ("Python", r"\.py$", r"(?<!\S)#[^\n]*|^\s*\"\"\".*?\"\"\""),
    ("shell", r"(\.sh|^dev|^\.ci/run)$", r"(?<!\S)#[^\n]*"),
    ("CMake", r"(CMakeLists\.txt|\.cmake|\.cmake\.in)$", r"(?<!\S)#[^\n]*"),
]


def code_lines(text, comment):
    return sum(bool(line.strip()) for line in re.sub(comment, "", text, flags=re.DOTALL | re.MULTILINE).splitlines())


def main():
    root = Path(__file__).resolve().parents[1]
    listing = subprocess.run(["git", "ls-files", "-z"], cwd=root, check=True, capture_output=True, text=True).stdout
    files = [file for file in listing.split("\0") if file and (root / file).is_file()]
    totals = [0, 0]
    print(f"{'':10}{'tests':>8}{'others':>8}")
    for language, pattern, comment in LANGUAGES:
        lines = [0, 0]
        for file in files:
            if re.search(pattern, file):
                lines[not file.startswith("tests/")] += code_lines((root / file).read_text(encoding="utf-8"), comment)
        print(f"{language:10}{lines[0]:8}{lines[1]:8}")
        totals = [total + count for total, count in zip(totals, lines)]
    share = totals[0] / totals[1]
    print(f"{'all':10}{totals[0]:8}{totals[1]:8}   share {share:.1%}, at most {MAXIMUM_SHARE:.1%}")
    return 1 if share > MAXIMUM_SHARE else 0


if __name__ == "__main__":
    sys.exit(main())
