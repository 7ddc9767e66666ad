#!/usr/bin/env bash
# Renders the pages of the properties dialog with build/release. ./dev builds the program and calls this script.
# All module types once; in the other languages, palettes and scales one module of each kind.
#
# usage: shots.sh FOLDER
set -euo pipefail
folder=$(realpath "$1")
cd "$(dirname "${BASH_SOURCE[0]}")/.."

for scale in 1 1.5 2; do
    for language in en zh; do
        for palette in light dark; do
            modules=kinds
            [[ $language-$palette-$scale != en-light-1 ]] || modules=all
            # The warning is about the platform without a screen.
            QT_QPA_PLATFORM=offscreen QT_SCALE_FACTOR=$scale \
                build/release/bin/shots "$folder" "$language" "$palette" "$modules" \
                2> >(grep -v 'does not support propagateSizeHints' >&2)
        done
    done
done
echo "shots: the pictures are in $folder"
