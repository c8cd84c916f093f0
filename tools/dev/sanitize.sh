# The unit tests under the address and the undefined-behaviour sanitizer, leaks included: ./dev sanitize [PATTERN].
# Threads are looked at where there are some: in what goes over a wire.

sanitize() {
    source tools/dev/test.sh
    buildPreset tsan http_tests postgres_tests
    local program
    for program in http_tests postgres_tests; do
        TSAN_OPTIONS=halt_on_error=1 "build/tsan/tests/$program" --gtest_brief=1
    done
    buildPreset asan-ubsan unit_tests
    export ASAN_OPTIONS=strict_string_checks=1:check_initialization_order=1
    export LSAN_OPTIONS=suppressions=$PWD/tools/dev/leaks.txt:print_suppressions=0
    export UBSAN_OPTIONS=print_stacktrace=1
    countTests asan-ubsan -E '^(end_to_end_tests|prove_)' ${1:+-R "$1"}
}
