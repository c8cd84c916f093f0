# Makes the Debian package of the present source and checks it; `test` works with it in a bare system.

# Builds in the folder $1, with further options of CMake.
makePackage() {
    local folder="$1"
    shift
    mkdir -p "$folder"
    cmake --preset product -B "$folder" "$@" >"$folder/configure.log" 2>&1 || { cat "$folder/configure.log"; return 1; }
    cmake --build "$folder"
    rm -f "$folder"/*.deb
    # Files of the package get the time of the commit, so that the same source makes the same package.
    SOURCE_DATE_EPOCH=$(git log -1 --format=%ct) \
        cpack --config "$folder/CPackConfig.cmake" -B "$folder" >"$folder/cpack.log" 2>&1 || { cat "$folder/cpack.log"; return 1; }
}

# Each package that this one needs must be in its list of licences.
checkLicences() {
    local needed status=0
    for needed in $(dpkg-deb -f "$1" Depends | sed 's/([^)]*)//g; s/|[^,]*//g; s/,/ /g; s/t64\b//g') libpq5; do
        grep -q "^ $needed " packaging/copyright || { echo "packaging/copyright: $needed is missing" >&2; status=1; }
    done
    return $status
}

package() {
    local product=build/product older=build/product-older
    makePackage $product
    lintian --fail-on error $product/*.deb
    checkLicences $product/*.deb
    if [ "${1:-}" = test ]; then
        mkdir -p $older
        echo 'set(PROJECT_VERSION 0.9.0)' >$older/version.cmake
        makePackage $older -D "CMAKE_PROJECT_INCLUDE=$PWD/$older/version.cmake"
        buildPreset dev ui_driver suite_server
        unshare --mount bash packaging/package_test.sh $older/*.deb $product/*.deb
    fi
    ls $product/*.deb
}
