#!/usr/bin/env bash
# Runs benchmark programs of build/release. ./dev builds them and calls this script.
#
# usage: bench.sh [PROGRAM...] [OPTION...]     without programs: all of them
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

programs=()
while [[ ${1-} =~ ^[a-z] ]]; do
    programs+=("$1")
    shift
done
if ((${#programs[@]} == 0)); then
    mapfile -t programs < <(basename -s .cpp bench/bench_*.cpp | sed 's/^bench_//')
fi

mkdir -p build/release/bench
LC_ALL=C lscpu | sed -nE 's/^ *(Model name|CPU family|Model|CPU\(s\)): */\1: /p'
for program in "${programs[@]}"; do
    if [[ ! -f bench/bench_$program.cpp ]]; then
        echo "bench: no benchmark has the name $program" >&2
        exit 1
    fi
    printf '\n%s\n\n' "$program"
    # The warning is about the platform without a screen.
    QT_QPA_PLATFORM=offscreen "build/release/bin/bench_$program" \
        "--benchmark_out=build/release/bench/$program.json" --benchmark_out_format=json "$@" \
        2> >(grep -v 'does not support propagateSizeHints' >&2)
done
