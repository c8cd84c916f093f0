# Fuzzes each entry point for bytes from outside with libFuzzer and the sanitizers: ./dev fuzz [SECONDS [TARGET]].

CORPUS=build/fuzz-corpus
FINDINGS=build/fuzz-findings

fuzz() {
    PACKAGES+=(clang)
    needPackages
    buildPreset fuzz
    mkdir -p "$FINDINGS"
    build/fuzz/tests/fuzz/write_seeds "$CORPUS"
    local status=0
    find "$CORPUS" -mindepth 1 -name "${2:-*}" -type d -printf '%f\n' | sort |
        xargs -P2 -I{} bash -c "source tools/dev/fuzz.sh; fuzzOne {} ${1:-60}" || status=1
    echo "findings: $(ls "$FINDINGS" | wc -l) in $FINDINGS"
    return "$status"
}

# The corpus keeps the fuzzer's useful inputs, and the next run begins with them.
fuzzOne() {
    local log status=0
    log=$(mktemp)
    QT_QPA_PLATFORM=offscreen ORV_FUZZ_TARGET="$1" ASAN_OPTIONS=detect_stack_use_after_return=1 \
        build/fuzz/tests/fuzz/fuzz "$CORPUS/$1" -max_total_time="$2" -max_len=8192 -timeout=180 -rss_limit_mb=3000 \
        -print_final_stats=1 -artifact_prefix="$FINDINGS/$1-" >"$log" 2>&1 || status=1
    [ "$status" -eq 0 ] || cat "$log"
    echo "$1: $(sed -n 's/^stat::number_of_executed_units: //p' "$log") runs in $2 s, corpus of $(ls "$CORPUS/$1" | wc -l)," \
        "$([ "$status" -eq 0 ] && echo clean || echo FAULT)"
    rm -f "$log"
    return "$status"
}
