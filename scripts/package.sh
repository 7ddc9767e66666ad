#!/usr/bin/env bash
# Writes the Debian packages of the build in build/package to its folder and checks them; see ./dev package.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
folder=build/package

rm -f "$folder"/*.deb # of other versions
cpack --config "$folder/CPackConfig.cmake" >/dev/null
tests/checks/check_debs.sh "$folder" "$(sed -n 's/^CMAKE_PROJECT_VERSION:[A-Z]*=//p' "$folder/CMakeCache.txt")"
printf '%s\n' "$folder"/*.deb
