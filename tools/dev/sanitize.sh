# The tests that need no real window, under the address and undefined-behaviour sanitizers.

sanitize() {
    buildPreset asan-ubsan
    ctest --test-dir build/asan-ubsan -j2 --output-on-failure -LE window
}
