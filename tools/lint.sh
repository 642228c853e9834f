#!/bin/bash
# Static checks over the whole tree, or with --changed over what differs from main; called by ./dev lint,
# which sees to the packages and a configured build/dev. Ends with 1 where any check has something to say.
#
# clang-tidy and clazy read what the compiler reads, a good second a file and core. A file that was found
# clean is not read again until it, a header it includes or the rules change (build/lint holds the marks).
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
jobs=${JOBS:-$(nproc)}
marks=build/lint
mkdir -p "$marks"
failed=0
changed= fix=
for option in "$@"; do
    case $option in
        --changed) changed=1 ;;
        --fix) fix=1 ;;
        *) echo "lint: no option $option" >&2; exit 2 ;;
    esac
done

# Own C++ files, sources and headers; the changed ones against main and the index where asked.
list_files() {
    if [ -n "$changed" ]; then
        git diff --name-only --diff-filter=d "$(git merge-base HEAD main)"
        git ls-files -o --exclude-standard
    else
        find src tools tests benchmarks -type f
    fi | grep -E '^(src|tools|tests|benchmarks)/.*\.(cpp|h)$' | sort -u
}
mapfile -t files < <(list_files)

# What the everyday build leaves out stands in a configuration of its own, of which nothing is built.
configure_rest() {
    cmake -S . -B "$marks/rest" -G Ninja -DVARNEL_TESTS=OFF -DVARNEL_BENCHMARKS=ON -DVARNEL_FUZZERS=ON \
        >"$marks/rest.log" 2>&1 || { tail -n 40 "$marks/rest.log" >&2; exit 1; }
}

# How to compile every source: as the everyday build does, else as the rest.
merge_commands() {
    python3 - build/dev/compile_commands.json "$marks/rest/compile_commands.json" <<'TEXT'
import json, sys
everyday, rest = (json.load(open(name)) for name in sys.argv[1:])
known = {entry["file"] for entry in everyday}
json.dump(everyday + [entry for entry in rest if entry["file"] not in known], sys.stdout, indent=0)
TEXT
}

configure_rest
merge_commands >"$marks/compile_commands.json"
mapfile -t sources < <(printf '%s\n' "${files[@]}" | grep '\.cpp$' | grep -v '_win\.cpp$')

# No source goes unread for want of a place in the build.
check_sources() {
    local source unknown=0
    for source in "${sources[@]}"; do
        grep -qF "$PWD/$source\"" "$marks/compile_commands.json" && continue
        echo "$source is compiled nowhere"
        unknown=1
    done
    return $unknown
}

step() { # step NAME COMMAND...
    local name=$1 start=$SECONDS
    shift
    if "$@"; then
        printf 'lint: %-13s clean (%d s)\n' "$name" $((SECONDS - start))
    else
        printf 'lint: %-13s FAILED (%d s)\n' "$name" $((SECONDS - start))
        failed=1
    fi
}

check_format() {
    [ ${#files[@]} != 0 ] || return 0
    [ -z "$fix" ] || clang-format -i "${files[@]}"
    clang-format --dry-run --Werror -ferror-limit=3 "${files[@]}" ||
        { echo "./dev lint --fix formats"; return 1; }
}

# The formatter leaves comments alone, and knows nothing but C++.
check_width() {
    find src tools tests benchmarks \( -name '*.cpp' -o -name '*.h' -o -name '*.py' -o -name '*.sh' \
        -o -name '*.cmake' -o -name CMakeLists.txt \) -exec awk 'length > 110 {
            print FILENAME ":" FNR ": " length " columns, 110 is the most"
            wide = 1
        }
        END { exit wide }' {} +
}

# Runs "$1 FILE" (a function below) for each source whose mark is out of date, several at once.
for_each_source() {
    local check=$1
    [ ${#sources[@]} != 0 ] || return 0
    export marks
    export -f mark_of tidy_file clazy_file
    printf '%s\n' "${sources[@]}" | xargs -r -d '\n' -P "$jobs" -n 1 bash -c \
        'mark=$(mark_of "$0" "$1"); [ -e "$mark" ] || { "$0" "$1" && touch "$mark"; }' "$check"
}

# A mark's name holds the file and the state of all that its finding depends on.
mark_of() {
    printf '%s/%s.%s.%s' "$marks" "$1" "${2//\//-}" "$(sed -n "s|^$2 ||p" "$marks/states")"
}
mapfile -t rules < <(find . -name build -prune -o -name .clang-tidy -print | sort)
printf '%s\n' "${sources[@]}" | python3 tools/lintstates.py "$marks/compile_commands.json" "${rules[@]}" \
    tools/lint.sh >"$marks/states" || exit 1

tidy_file() {
    clang-tidy --quiet -p "$marks" --header-filter="^$PWD/(src|tools|tests|benchmarks)/" \
        --extra-arg=-Wno-gnu-zero-variadic-macro-arguments "$1" 2>&1 |
        grep -vE '^[0-9]+ warnings? (generated|treated)'
    return "${PIPESTATUS[0]}"
}

# Old-style connects and slots that Qt finds by their names are this program's conventions; the rest of level
# 1 holds, but for the objects by which benchmarks make themselves known. Sources that moc makes are not ours,
# nor is how Qt's macros take their arguments.
clazy_file() {
    local text checks=level1,no-old-style-connect,no-connect-by-name
    [[ $1 != benchmarks/* ]] || checks+=,no-non-pod-global-static
    text=$(clazy-standalone -p "$marks" --only-qt --checks="$checks" \
        --header-filter="^$PWD/(src|tools|tests|benchmarks)/" --ignore-dirs='autogen|\.moc' \
        --extra-arg=-Wno-gnu-zero-variadic-macro-arguments "$1" 2>&1 |
        grep -E -A4 '(warning|error):.*' | grep -v 'warnings\? generated')
    [ -z "$text" ] || { echo "$text"; return 1; }
}

check_cppcheck() {
    cppcheck --quiet --library=qt --std=c++17 --enable=warning,performance,portability --inline-suppr \
        --suppressions-list=tools/cppcheck-suppressions.txt --error-exitcode=1 -j "$jobs" \
        --cppcheck-build-dir="$marks" "-DVARNELGRAPH_VERSION=\"0\"" \
        -I src -I tools -I tests -I benchmarks src tools tests benchmarks
}

step format check_format
step width check_width
step sources check_sources
step layers python3 tools/check_layers.py
step words python3 tools/check_words.py
step cppcheck check_cppcheck
step clang-tidy for_each_source tidy_file
step clazy for_each_source clazy_file
exit $failed
