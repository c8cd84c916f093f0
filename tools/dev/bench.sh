# The benchmarks, on the optimised build.

bench() {
    buildPreset release bench >/dev/null
    rm -rf build/bench-offices
    mkdir -p build/bench-offices
    local name
    for name in ${1:-start save list}; do
        QT_QPA_PLATFORM=offscreen build/release/tools/bench/bench build/bench-offices "$name"
    done
}
