# Builds the program for Windows and tests it under wine.
source tools/dev/windows_libraries.sh

WINDOWS_CORE_PACKAGES=(
    g++-mingw-w64-x86-64-posix libz-mingw-w64-dev wine64 wine cmake ninja-build ccache python3 dpkg-dev tcl
    libgtest-dev libsqlite3-dev
)
WINDOWS_PACKAGES=("${WINDOWS_CORE_PACKAGES[@]}" nsis zip unzip sqlite3 xvfb nasm bison flex qt6-base-dev-tools qt6-l10n-tools imagemagick)

windows() {
    local command="${1:-core}"
    [ $# -gt 0 ] && shift
    case "$command" in
        core) windowsCore ;;
        libraries) windowsLibraries ;;
        package) source tools/dev/windows_package.sh; windowsPackage "$@" ;;
        *) help; exit 2 ;;
    esac
}

# All that needs no Qt, with its tests under wine.
windowsCore() {
    PACKAGES=("${WINDOWS_CORE_PACKAGES[@]}")
    needPackages
    needWindowsLibraries "${WINDOWS_CORE_LIBRARIES[@]}"
    buildPreset windows-core
    python3 tools/dev/report_wine.py windows-core
}

windowsLibraries() {
    PACKAGES+=("${WINDOWS_PACKAGES[@]}")
    needPackages
    needWindowsLibraries "${WINDOWS_ALL_LIBRARIES[@]}"
}
