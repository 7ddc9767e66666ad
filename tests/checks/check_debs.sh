#!/usr/bin/env bash
# Checks the Debian packages of a folder: the rules of Debian, the installed programs, the example built against them, and
# the validators of all files for the desktop. Installs into a temporary folder only.
#
# usage: check_debs.sh FOLDER VERSION
set -euo pipefail
packages=$(realpath "$1")
version=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
root=$scratch/root
export PATH=$root/usr/bin:$PATH QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR=$scratch HOME=$scratch
unset LD_LIBRARY_PATH SIMHOST_COMPONENTS DISPLAY WAYLAND_DISPLAY

fail() {
    printf 'check_debs: %s\n' "$*" >&2
    exit 1
}

# same WHAT EXPECTED ACTUAL
same() {
    [[ $2 == "$3" ]] || fail "$1: expected
$2
but found
$3"
}

# options_in_help PROGRAM. Prints the long options that --help lists.
options_in_help() {
    "$1" --help | grep -oP '^  (-., )?\K--[a-z-]+' | sort
}

# completed PROGRAM WORD. Prints what bash offers for a word.
completed() {
    bash -c 'source /usr/share/bash-completion/bash_completion
             source "$3/usr/share/bash-completion/completions/$1"
             COMP_WORDS=("$1" "$2") COMP_CWORD=1 COMP_LINE="$1 $2"
             COMP_POINT=${#COMP_LINE}
             "_simpleextend_$1" "$1" "$2" "$1"
             printf "%s\n" "${COMPREPLY[@]}"' bash "$1" "$2" "$root" | sort
}

check_rules() {
    lintian --allow-root --fail-on error,warning,info --display-info --tag-display-limit 0 "$packages"/*.deb
}

unpack() {
    local package
    for package in simpleextend simpleextend-dev; do
        same "version of $package" "$version" "$(dpkg-deb -f "$packages/${package}_"*.deb Version | sed 's/-[^-]*$//')"
        dpkg-deb -x "$packages/${package}_"*.deb "$root"
    done
}

check_program() {
    local program=$1 page warnings
    same "$program --version" "$program $version" "$("$program" --version)"
    if ldd "$root/usr/bin/$program" | grep -E 'lib(basemodule|helpsharemodule|simpleextend)\.so' | grep -vF "$root/"; then
        fail "$program uses libraries outside the package"
    fi
    page=$root/usr/share/man/man1/$program.1.gz
    warnings=$(man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 >/dev/null)
    same "warnings of the manual page of $program" '' "$warnings"
    man -l "$page" | col -b >"$scratch/page"
    while read -r option; do
        grep -qF -- "$option" "$scratch/page" || fail "the manual page of $program has no $option"
    done < <(options_in_help "$program")
    same "completed options of $program" "$(options_in_help "$program")" "$(completed "$program" -)"
}

# A station from the installed catalog passes through all programs.
check_station() {
    workbench --table | grep -F 'Digital Input 16 x 24 V' >/dev/null || fail "the catalog is not found"
    workbench --batch --new "$scratch/plant.station" --modules 40
    workbench --batch "$scratch/plant.station" --compile "$scratch/plant.blk"
    blockinspect --config "$scratch/plant.blk" >/dev/null
    metlint "$root/usr/share/simpleextend/catalog"
    hostcheck >/dev/null
    same "completed project files" plant.station "$(cd "$scratch" && completed workbench plant)"
}

check_example() {
    local example=$root/usr/share/doc/simpleextend-dev/examples/minimal-host flags
    cmake -S "$example" -B "$scratch/build" -D CMAKE_PREFIX_PATH="$root/usr" >/dev/null
    cmake --build "$scratch/build" >/dev/null
    "$scratch/build/minimal-host" --no-dialog 2>/dev/null
    flags=$(PKG_CONFIG_PATH=$(echo "$root"/usr/lib/*/pkgconfig) pkg-config --cflags --libs simpleextend)
    # shellcheck disable=SC2086 # the flags are words
    "${CXX:-c++}" -std=c++17 -fPIC -o "$scratch/minimal-host" "$example/main.cpp" $flags
    "$scratch/minimal-host" --no-dialog 2>/dev/null
}

content_type() {
    XDG_DATA_HOME=$root/usr/share gio info -a standard::content-type "$1" | sed -n 's/.*content-type: //p'
}

check_desktop() {
    local share=$root/usr/share station=application/x-simpleextend-station messages
    messages=$(desktop-file-validate "$share"/applications/*.desktop)
    same "messages of desktop-file-validate" '' "$messages"
    xmllint --noout "$share"/mime/packages/*.xml
    # No licence has been chosen, and the project has no domain. appstreamcli cannot ignore the first of these issues.
    same "issues of appstreamcli" 'cid-desktopapp-is-not-rdns metadata-license-missing' \
        "$(appstreamcli validate-tree --no-net --no-color "$root" | grep -oP '^ *[EWI]: \S+ \K\S+' | sort | xargs)"

    XDG_DATA_HOME=$share update-mime-database "$share/mime"
    same "type of a project" $station "$(content_type "$scratch/plant.station")"
    cp "$scratch/plant.station" "$scratch/plant"
    same "type of a project without extension" $station "$(content_type "$scratch/plant")"
    python3 -c 'import sqlite3, sys; sqlite3.connect(sys.argv[1]).executescript("create table t(x)")' "$scratch/other"
    same "type of another database" application/vnd.sqlite3 "$(content_type "$scratch/other")"
}

check_rules
unpack
for program in "$root"/usr/bin/*; do check_program "$(basename "$program")"; done
check_station
check_example
check_desktop
echo "check_debs: the packages are valid"
