# The unit tests under the address and the undefined-behaviour sanitizer, leaks included: ./dev sanitize [PATTERN].
# Threads are watched where there are some: in what goes over a wire.

sanitize() {
    buildPreset tsan
    python3 tools/dev/report_tests.py tsan
    buildPreset asan-ubsan
    python3 tools/dev/report_tests.py asan-ubsan ${1:+-R "$1"}
}
