# Builds everything, runs every test, and counts.

runTests() {
    buildPreset dev
    countTests dev ${1:+-R "$1"}
}

# ctest with those options in the build of that preset; the last line is 'N passed, M failed'.
countTests() {
    local preset="$1" log status=0
    shift
    log=$(mktemp)
    ctest --test-dir "build/$preset" -j2 --output-on-failure "$@" | tee "$log" || status=$?
    local all failed
    all=$(grep -oE 'out of [0-9]+' "$log" | grep -oE '[0-9]+' || echo 0)
    failed=$(grep -oE '[0-9]+ tests? failed' "$log" | grep -oE '^[0-9]+' || echo 0)
    rm -f "$log"
    echo "$((all - failed)) passed, $failed failed"
    [ "$all" -gt 0 ] && [ "$status" -eq 0 ]
}
