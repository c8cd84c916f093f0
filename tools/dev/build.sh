# The build, by preset: dev, release, asan-ubsan.

buildPreset() {
    local preset="$1"
    shift
    local log; log=$(mktemp)
    cmake --preset "$preset" >"$log" 2>&1 || { cat "$log"; exit 1; }
    rm -f "$log"
    ninja -C "build/$preset" "$@"
}
