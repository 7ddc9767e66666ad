#!/usr/bin/env python3
"""Checks that a translation has every text of the sources, each of them finished and with its placeholders.

usage: check_translations.py LUPDATE TRANSLATION SOURCE_FOLDER...
"""
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree
from pathlib import Path


def read(path):
    """(context, source text) -> the message's translation element"""
    return {(context.findtext("name"), message.findtext("source")): message.find("translation")
            for context in ElementTree.parse(path).iter("context") for message in context.iter("message")}


def placeholders(text):
    """What stands for something else: arguments, and the mark of a mnemonic."""
    return sorted(re.findall(r"%\d|&(?=\w)", text))


def main(lupdate, translation, *folders):
    with tempfile.TemporaryDirectory() as folder:
        updated = shutil.copy(translation, Path(folder) / "updated_zh_CN.ts")
        subprocess.run([lupdate, "-silent", "-no-obsolete", *folders, "-ts", updated], check=True)
        wanted = read(updated)
    given = read(translation)
    complaints = [f"lacks {text}" for text in wanted.keys() - given.keys()]
    complaints += [f"has {text}, which no source has" for text in given.keys() - wanted.keys()]
    for text, element in given.items():
        if element.get("type") or not element.text:
            complaints.append(f"has not finished {text}")
        elif placeholders(text[1]) != placeholders(element.text):
            complaints.append(f"has other placeholders in {text}")
    for complaint in sorted(complaints):
        print(f"{translation} {complaint}")
    return not given or bool(complaints)


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
