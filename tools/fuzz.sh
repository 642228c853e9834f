# Part of ./dev: the fuzzers. New inputs are kept in build/fuzz/corpus, finds in build/fuzz/finds; the small
# corpora that each run starts from are in tests/fuzz/corpus. With FUZZ_SEED a run in a fresh folder takes the
# same way again, as far as its time reaches.

fuzz_targets() { sed -n 's/^varnel_fuzzer(\([a-z]*\) .*/\1/p' tests/fuzz/CMakeLists.txt; }

# fuzz_one TARGET SECONDS
fuzz_one() {
    local target=$1 seconds=$2
    local corpus=build/fuzz/corpus/$target finds=build/fuzz/finds/$target dictionary=tests/fuzz/$target.dict
    mkdir -p "$corpus" "$finds"
    local options=(-max_total_time="$seconds" -timeout=20 -rss_limit_mb=4096 -max_len=8192
        -print_final_stats=1 -artifact_prefix="$finds/")
    [ -z "${FUZZ_SEED:-}" ] || options+=(-seed="$FUZZ_SEED")
    [ ! -e "$dictionary" ] || options+=(-dict="$dictionary")
    say "fuzzing $target for $seconds s"
    QT_HASH_SEED=0 QT_QPA_PLATFORM=offscreen UBSAN_OPTIONS=print_stacktrace=1 ASAN_OPTIONS=detect_leaks=0 \
        "build/fuzz/tests/fuzz/fuzz_$target" "${options[@]}" "$corpus" "tests/fuzz/corpus/$target" \
        >"build/fuzz/$target.log" 2>&1 || {
        tail -n 60 "build/fuzz/$target.log" >&2
        fail "$target: an input that breaks it is in $finds; all of the output in build/fuzz/$target.log"
    }
    awk -v target="$target" '
        /cov: / { line = $0 }
        /number_of_executed_units/ { runs = $2 }
        END {
            match(line, /cov: [0-9]+/); coverage = substr(line, RSTART + 5, RLENGTH - 5)
            match(line, /corp: [0-9]+/); corpus = substr(line, RSTART + 6, RLENGTH - 6)
            printf "%-10s %12d executions, coverage %d, corpus of %d, no find\n", target, runs, coverage,
                corpus
        }' "build/fuzz/$target.log"
}

fuzz() {
    local target=${1:-} seconds=${2:-60} one
    case " $(fuzz_targets | tr '\n' ' ') all " in
        *" $target "*) ;;
        *)
            echo "targets:" $(fuzz_targets) all
            [ -z "$target" ] || fail "there is no target '$target'"
            return 0
            ;;
    esac
    [ "$target" != all ] || target=$(fuzz_targets)
    build fuzz $(printf 'fuzz_%s ' $target)
    for one in $target; do
        fuzz_one "$one" "$seconds"
    done
}
