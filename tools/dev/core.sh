# Tests the system's own folders, with only a compiler and GoogleTest.

core() {
    PACKAGES=(g++ cmake ninja-build python3 libgtest-dev)
    needPackages
    buildPreset core
    python3 tools/dev/report_tests.py core
}
