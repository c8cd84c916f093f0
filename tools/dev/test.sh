# Builds everything, runs every test, and counts.

runTests() {
    buildPreset dev
    local log status=0
    log=$(mktemp)
    ctest --test-dir build/dev -j2 --output-on-failure ${1:+-R "$1"} | tee "$log" || status=$?
    local all failed
    all=$(grep -oE 'out of [0-9]+' "$log" | grep -oE '[0-9]+' || echo 0)
    failed=$(grep -oE '[0-9]+ tests? failed' "$log" | grep -oE '^[0-9]+' || echo 0)
    rm -f "$log"
    echo "$((all - failed)) passed, $failed failed"
    [ "$all" -gt 0 ] && [ "$status" -eq 0 ]
}
