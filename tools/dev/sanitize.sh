# Runs the unit tests under the address and undefined-behaviour sanitizers, including leaks: ./dev sanitize [PATTERN].
# Tests with a network connection also run under the thread sanitizer.

sanitize() {
    buildPreset tsan
    python3 tools/dev/report_tests.py tsan
    buildPreset asan-ubsan
    python3 tools/dev/report_tests.py asan-ubsan ${1:+-R "$1"}
}
