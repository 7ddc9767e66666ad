#!/usr/bin/env python3
"""Checks that a built plug-in exports its twenty functions with undecorated names, and nothing else.

usage: check_exports.py NM LIBRARY
"""
import subprocess
import sys

EXPORTS = set("""
    createObject releaseObject config autoMallocInMap autoMallocOutMap
    getName getComment getNodeId getInMap getOutMap getPosition getRackId getSlotId
    setPosition setRackId setSlotId compile recompile save restore
""".split())


def main(nm, library):
    listing = subprocess.run([nm, "-D", "--defined-only", library], check=True, capture_output=True, text=True).stdout
    found = {line.split()[-1] for line in listing.splitlines()}
    for name in sorted(EXPORTS - found):
        print(f"{library}: does not export {name}")
    for name in sorted(found - EXPORTS):
        print(f"{library}: exports {name}, which is not one of the twenty functions")
    return found != EXPORTS


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
