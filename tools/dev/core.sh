# The system's own folders and their tests, with nothing but a compiler and GoogleTest.

core() {
    PACKAGES=(g++ cmake ninja-build python3 libgtest-dev)
    needPackages
    buildPreset core
    python3 tools/dev/report_tests.py core
}
