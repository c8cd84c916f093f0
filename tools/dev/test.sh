# Builds everything, runs every test, and counts.

runTests() {
    buildPreset dev
    python3 tools/dev/report_tests.py dev ${1:+-R "$1"}
}
