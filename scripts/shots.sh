#!/usr/bin/env bash
# Renders the pages of the properties dialog with build/release. ./dev builds the program and calls this script.
# It renders all module types once. In the other languages, palettes and scales and in a large font it renders one module
# of each kind.
#
# usage: shots.sh FOLDER
set -euo pipefail
folder=$(realpath "$1")
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# render SCALE LANGUAGE PALETTE MODULES [POINTS]
render() {
    # The warning is about the platform without a screen.
    QT_QPA_PLATFORM=offscreen QT_SCALE_FACTOR=$1 build/release/bin/shots "$folder" "${@:2}" \
        2> >(grep -v 'does not support propagateSizeHints' >&2)
}

for language in en zh; do
    for palette in light dark; do
        for scale in 1 1.5 2; do
            modules=kinds
            [[ $language-$palette-$scale != en-light-1 ]] || modules=all
            render "$scale" "$language" "$palette" "$modules"
        done
        render 1 "$language" "$palette" kinds 18
    done
done
echo "shots: the pictures are in $folder"
