#!/usr/bin/env python3
"""Checks that a translation has every text of the sources, finished and with the same placeholders.

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
    """Returns {(context, source text): translation element}."""
    return {(context.findtext("name"), message.findtext("source")): message.find("translation")
            for context in ElementTree.parse(path).iter("context") for message in context.iter("message")}


def placeholders(text):
    """Returns the arguments and the mnemonic marks of a text."""
    return sorted(re.findall(r"%\d|&(?=\w)", text))


def main(lupdate, translation, *folders):
    with tempfile.TemporaryDirectory() as folder:
        updated = shutil.copy(translation, Path(folder) / "updated_zh_CN.ts")
        subprocess.run([lupdate, "-silent", "-no-obsolete", *folders, "-ts", updated], check=True)
        wanted = read(updated)
    given = read(translation)
    errors = [f"has no {text}" for text in wanted.keys() - given.keys()]
    errors += [f"has {text}, which is not in the sources" for text in given.keys() - wanted.keys()]
    for text, element in given.items():
        forms = [form.text for form in element.iter("numerusform")] or [element.text]
        if element.get("type") or not all(forms):
            errors.append(f"has an unfinished translation of {text}")
        elif any(placeholders(text[1]) != placeholders(form) for form in forms):
            errors.append(f"has other placeholders in {text}")
    for error in sorted(errors):
        print(f"{translation} {error}")
    return not given or bool(errors)


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
