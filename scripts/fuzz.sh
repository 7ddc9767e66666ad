#!/usr/bin/env bash
# Runs the fuzz targets of build/fuzz, or reduces their corpora. ./dev builds them and calls this script.
#
# usage: fuzz.sh run [SECONDS] [TARGET...]     without targets: all targets, 60 seconds each
#        fuzz.sh corpus [TARGET...]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
folder=$PWD/build/fuzz/fuzz

die() {
    printf 'fuzz: %s\n' "$*" >&2
    exit 1
}

# Sets targets to the given names, or to all targets.
select_targets() {
    local target
    targets=("$@")
    if ((${#targets[@]} == 0)); then
        mapfile -t targets < <(basename -s .arguments "$folder"/*.arguments)
    fi
    for target in "${targets[@]}"; do
        [[ -f $folder/$target.arguments ]] || die "no fuzz target has the name $target"
    done
}

# run_target TARGET SECONDS. The corpus of the target grows in the build folder, next to its log. The options of the
# sanitizer save a third of the time: without them it records a stack for every allocation and fills the memory, and its
# quarantine exceeds the caches. A replay under the preset asan shows the stacks of an input that breaks the target.
run_target() {
    local findings=fuzz/findings/$1 arguments fuzzer
    mapfile -t arguments <"$folder/$1.arguments"
    fuzzer=(env ASAN_OPTIONS=malloc_context_size=0:max_malloc_fill_size=0:quarantine_size_mb=4
        "$PWD/build/fuzz/bin/$1" -timeout=60 "-artifact_prefix=$findings/" "$folder/corpus/$1" "${arguments[@]}")
    mkdir -p "$findings" "$folder/corpus/$1"
    # The search runs the expensive checks on one input in 32 and does not look for leaks. Afterwards all inputs that it
    # kept go through all checks.
    if FUZZ_COSTLY_SHARE=32 "${fuzzer[@]}" -max_total_time="$2" -detect_leaks=0 -print_final_stats=1 &&
        "${fuzzer[@]}" -runs=0; then
        echo "fuzz: clean"
    fi &>"$folder/$1.log"
    rmdir --ignore-fail-on-non-empty "$findings"
}

# statistic TARGET NAME. Prints a value from the log of the target.
statistic() {
    sed -n "s/^stat::$2: *//p" "$folder/$1.log"
}

run() {
    local seconds=60 target failed=0 outcome
    if [[ ${1-} =~ ^[1-9][0-9]*$ ]]; then
        seconds=$1
        shift
    fi
    select_targets "$@"

    echo "fuzz: ${targets[*]}, $seconds seconds each" >&2
    for target in "${targets[@]}"; do
        while (($(jobs -rp | wc -l) >= $(nproc))); do wait -n; done
        run_target "$target" "$seconds" &
    done
    wait

    printf '%-20s %14s %14s  %s\n' target executions 'per second' outcome
    for target in "${targets[@]}"; do
        outcome=clean
        if ! grep -q '^fuzz: clean$' "$folder/$target.log"; then
            outcome="BROKEN, see fuzz/findings/$target and build/fuzz/fuzz/$target.log"
            failed=1
        fi
        printf '%-20s %14s %14s  %s\n' "$target" "$(statistic "$target" number_of_executed_units)" \
            "$(statistic "$target" average_exec_per_sec)" "$outcome"
    done
    return "$failed"
}

# The same inputs give the same archive: names are sorted; times, owners and modes are fixed.
corpus() {
    local target kept log
    select_targets "$@"
    for target in "${targets[@]}"; do
        kept=$(mktemp -d)
        log=$folder/$target.corpus.log
        mkdir -p "$folder/corpus/$target"
        "build/fuzz/bin/$target" -set_cover_merge=1 "$kept" "$folder/reduced/$target" "$folder/corpus/$target" \
            &>"$log" || die "$target failed, see $log"
        tar --create --xz --file="fuzz/corpus/$target.tar.xz" --directory="$kept" --sort=name --mtime=@0 \
            --owner=0 --group=0 --numeric-owner --mode=u=rwX,go=rX .
        printf '%-20s %6d inputs %8d bytes\n' "$target" "$(find "$kept" -type f | wc -l)" \
            "$(find "$kept" -type f -exec cat {} + | wc -c)"
        rm -rf "$kept"
    done
}

case ${1-} in
run | corpus)
    "$@"
    ;;
*)
    die "usage: fuzz.sh run [SECONDS] [TARGET...] | corpus [TARGET...]"
    ;;
esac
