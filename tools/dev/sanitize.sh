# The unit tests under the address and the undefined-behaviour sanitizer, leaks included: ./dev sanitize [PATTERN].
# Threads are looked at where there are some: in what goes over a wire.

sanitize() {
    source tools/dev/test.sh
    buildPreset tsan http_tests postgres_tests
    export TSAN_OPTIONS="halt_on_error=1 suppressions=$PWD/tools/dev/threads.txt"
    build/tsan/tests/http_tests --gtest_brief=1
    # The others of this program count seconds, which the sanitizer stretches.
    build/tsan/tests/postgres_tests --gtest_brief=1 --gtest_filter='*StoreContract*'
    buildPreset asan-ubsan unit_tests
    export ASAN_OPTIONS=strict_string_checks=1:check_initialization_order=1
    export LSAN_OPTIONS=suppressions=$PWD/tools/dev/leaks.txt:print_suppressions=0
    export UBSAN_OPTIONS=print_stacktrace=1
    countTests asan-ubsan -E '^(end_to_end_tests|prove_)' ${1:+-R "$1"}
}
