# Builds a preset of CMakePresets.json, or targets of it: buildPreset PRESET [TARGET...].

buildPreset() {
    local preset="$1"
    shift
    local log; log=$(mktemp)
    cmake --preset "$preset" >"$log" 2>&1 || { cat "$log"; exit 1; }
    rm -f "$log"
    cmake --build --preset "$preset" ${1:+--target "$@"}
}
