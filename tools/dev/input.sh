# Works the program as fast as the screen, each time in a new start: ./dev input [RUNS].

input() {
    buildPreset release immediate_input >/dev/null
    rm -rf build/input
    build/release/tools/ui_driver/immediate_input build/input "${1:-500}"
}
