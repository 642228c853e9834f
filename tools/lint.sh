#!/bin/bash
# Static checks over the whole tree, or with --changed over what differs from main; called by ./dev lint,
# which sees to the packages and a configured build/dev. Ends with 1 where any check has something to say.
#
# clang-tidy and clazy read sources in groups (lintgroups.py). A file that was found clean is not read again
# until it, a header it includes or the rules change (build/lint holds the marks).
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

# How to compile every source alone: as the everyday build does with the group it is in, else as the rest.
# Headers that GCC has read before are nothing to other compilers.
merge_commands() {
    python3 - build/dev/compile_commands.json "$marks/rest/compile_commands.json" <<'TEXT'
import json, re, sys

def alone(entries):
    for entry in entries:
        group, command = entry["file"], entry["command"].replace(" -fpch-preprocess", "")
        command = re.sub(r" -Winvalid-pch -include \S+cmake_pch\.hxx", "", command)
        sources = re.findall('#include "(.*)"', open(group).read()) if "/Unity/" in group else [group]
        for source in sources:
            yield {**entry, "file": source, "command": command.replace(group, source)}

everyday, rest = (list(alone(json.load(open(name)))) for name in sys.argv[1:])
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
    local wide
    wide=$(find src tools tests benchmarks \( -name '*.cpp' -o -name '*.h' -o -name '*.py' -o -name '*.sh' \
        -o -name '*.cmake' -o -name CMakeLists.txt \) -exec env LC_ALL=C.UTF-8 grep -HnP '^.{111}' {} +)
    [ -z "$wide" ] || { printf '%s\n' "$wide" "110 columns are the most"; return 1; }
}

mapfile -t rules < <(find . -name build -prune -o -name .clang-tidy -print | sort)
printf '%s\n' "${sources[@]}" | python3 tools/lintstates.py "$marks/compile_commands.json" "${rules[@]}" \
    tools/lint.sh tools/lintgroups.py >"$marks/states" || exit 1

in_groups() { # in_groups tidy|clazy
    [ ${#sources[@]} = 0 ] ||
        printf '%s\n' "${sources[@]}" | python3 tools/lintgroups.py "$1" "$marks" "$jobs"
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
step translations python3 tools/check_translations.py
step cppcheck check_cppcheck
step clang-tidy in_groups tidy
step clazy in_groups clazy
exit $failed
