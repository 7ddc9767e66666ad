#!/usr/bin/env bash
# Runs the tests of build/coverage and compares the coverage of each folder with its goals. Exit status 1: a goal is
# missed. ./dev builds the tests and calls this script.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
folder=build/coverage
trace=$folder/trace.json

# Folder, minimum percentage of lines, minimum percentage of branches.
goals='core 100 95
persist 100 95
pages 95 0
dialog 95 0
inspect 85 0
workbench 85 0
tools 85 0'

# Reads the goals and then the table of files from gcovr.
compare_with_goals() {
    awk -F '[ ,/]' '
        function percent(part, whole) { return whole ? int(1000 * part / whole) / 10 : 0 }
        NF == 3 { folders[++count] = $1; line_goal[$1] = $2; branch_goal[$1] = $3; next }
        FNR > 1 {
            lines[$1] += $(NF - 8); reached[$1] += $(NF - 7)
            branches[$1] += $(NF - 5); taken[$1] += $(NF - 4)
        }
        END {
            print "folder        lines  reached    goal  branches    taken    goal"
            for (i = 1; i <= count; i++) {
                folder = folders[i]
                at_lines = percent(reached[folder], lines[folder])
                at_branches = percent(taken[folder], branches[folder])
                misses = at_lines < line_goal[folder] || at_branches < branch_goal[folder]
                failed += misses
                printf "%-12s %6d  %6.1f%%  %5d%%    %6d  %6.1f%%  %5d%%%s\n", folder, lines[folder], at_lines,
                    line_goal[folder], branches[folder], at_branches, branch_goal[folder], misses ? "  MISSED" : ""
            }
            exit failed > 0
        }' <(echo "$goals") "$1"
}

# The counters of an earlier run would count lines that are no longer reached.
find "$folder" -name '*.gcda' -delete
ctest --preset coverage --parallel "$(nproc)"

# Not counted, because the compiler generates them: branches that only an exception takes, and branches of lines without
# code, such as closing braces, where destructors run.
mkdir -p "$folder/report"
gcovr "$folder" --filter '(core|persist|pages|dialog|inspect|workbench|tools)/' -j "$(nproc)" \
    --exclude-throw-branches --exclude-unreachable-branches --json "$trace"
gcovr --add-tracefile "$trace" --html-details "$folder/report/index.html" --csv "$folder/files.csv"
echo 'Lines of core/ and persist/ that no test reaches:'
gcovr --add-tracefile "$trace" --filter '(core|persist)/' --txt | grep -E '^(core|persist).* [0-9,-]+$' || true
echo 'Lines of core/ and persist/ with a branch that no test takes:'
gcovr --add-tracefile "$trace" --filter '(core|persist)/' --txt --branches |
    grep -E '^(core|persist).*% +[0-9,-]+$' || true
compare_with_goals "$folder/files.csv"
