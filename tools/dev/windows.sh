# Builds the program for Windows and tests it under wine.
source tools/dev/windows_libraries.sh
source tools/dev/windows_program.sh

WINDOWS_CORE_PACKAGES=(
    g++-mingw-w64-x86-64-posix libz-mingw-w64-dev wine64 wine cmake ninja-build ccache python3 dpkg-dev tcl locales
    libgtest-dev libsqlite3-dev nlohmann-json3-dev libcli11-dev libarchive-dev
)
WINDOWS_PACKAGES=(
    "${WINDOWS_CORE_PACKAGES[@]}" libssl-dev libcpp-httplib-dev perl bison flex nsis zip unzip sqlite3 xvfb qt6-base-dev-tools
    qt6-translations-l10n imagemagick
)

windows() {
    local command="${1:-all}"
    [ $# -gt 0 ] && shift
    case "$command" in
        all) buildWindows; windowsTests; source tools/dev/windows_package.sh; windowsPackage ;;
        core) windowsCore ;;
        crash) windowsCrash "$@" ;;
        libraries) needAllWindowsLibraries ;;
        cached) areWindowsLibrariesCached ;;
        package) source tools/dev/windows_package.sh; windowsPackage "$@" ;;
        test) buildWindows; windowsTests "$@" ;;
        run) source tools/dev/windows_run.sh; windowsRun "$@" ;;
        *) help; exit 2 ;;
    esac
}

# All that needs no Qt, with its tests under wine.
windowsCore() {
    buildWindowsCore
    python3 tools/dev/report_wine.py windows-core
}

# The crash test with each point, or with every STEP-th.
windowsCrash() {
    buildWindowsCore crash_tests
    ORV_CRASH_STEP="${1:-1}" tools/dev/wine.sh build/windows-core/tests/crash_tests.exe
}

buildWindowsCore() {
    PACKAGES=("${WINDOWS_CORE_PACKAGES[@]}")
    needPackages
    needWindowsLibraries "${WINDOWS_CORE_LIBRARIES[@]}"
    buildPreset windows-core "$@"
}

needAllWindowsLibraries() {
    PACKAGES+=("${WINDOWS_PACKAGES[@]}")
    needPackages
    needWindowsLibraries "${WINDOWS_ALL_LIBRARIES[@]}"
}

areWindowsLibrariesCached() {
    local name
    for name in "${WINDOWS_ALL_LIBRARIES[@]}"; do
        [ -d "$(windowsLibrary "$name" 2>/dev/null)" ] || return 1
    done
}

buildWindows() {
    needAllWindowsLibraries
    buildPreset windows
}

windowsTests() {
    buildPreset dev server_for_tests
    ORV_WINE_PATH="Z:$(windowsLibrary qt)/bin;Z:$(windowsLibrary curl)/bin;Z:$(windowsLibrary pq)/bin" python3 tools/dev/report_wine.py windows "$@"
}
