# Makes the installer and the ZIP of the program for Windows. `test` installs, updates and removes it under wine.

WINDOWS_TREE="$WINDOWS_BUILD/tree"

# Debian's packages whose code is in the programs or in their libraries.
WINDOWS_LICENCES=(
    libsqlite3-dev libjpeg62-turbo-dev libpng-dev libtiff-dev libgif-dev libcurl4-openssl-dev libpq-dev libssl-dev
    nlohmann-json3-dev libcli11-dev libarchive-dev qt6-base-dev
    qt6-translations-l10n libz-mingw-w64-dev g++-mingw-w64-x86-64-posix mingw-w64-x86-64-dev
)

windowsVersion() { sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$WINDOWS_BUILD/CMakeCache.txt"; }

addWindowsLicences() {
    local name
    for name in "${WINDOWS_LICENCES[@]}"; do
        install -D -m 644 "/usr/share/doc/$name/copyright" "$1/$name.txt"
    done
    for name in LGPL-2 LGPL-2.1 LGPL-3 GPL-2 GPL-3; do
        install -m 644 "/usr/share/common-licenses/$name" "$1/$name.txt"
    done
}

# True if Windows has the library: wine has libraries of the same names, except the many that only forward calls.
isPartOfWindows() { [[ "$1" = api-ms-win-* ]] || find /usr/lib/*/wine/x86_64-windows -iname "$1" | grep -q .; }

# Fails if a program or library in a folder needs a library that neither the folder nor Windows has.
checkWindowsLibraries() {
    local name status=0
    while read -r name; do
        [ -e "$1/$name" ] || isPartOfWindows "$name" || { echo "$1: $name is missing" >&2; status=1; }
    done < <(find "$1" -name '*.dll' -o -name '*.EXE' | xargs $WINDOWS_HOST-objdump -p | sed -n 's/^\tDLL Name: //p' | sort -u)
    return $status
}

# The files of the installer and of the ZIP.
makeWindowsTree() {
    local programs="$WINDOWS_TREE/programs" program
    rm -rf "$WINDOWS_TREE"
    cmake --install "$WINDOWS_BUILD" --prefix "$PWD/$WINDOWS_TREE" >"$WINDOWS_BUILD/install.log"
    placeWindowsProgram "$programs/BIN"
    addWindowsLicences "$programs/HLP/licences"
    checkWindowsLibraries "$programs/BIN"
    for program in "$WINDOWS_TREE"/*/BIN/*.EXE; do
        $WINDOWS_HOST-strip "$program"
        tools/checks/windows_program.sh "$program" "$(windowsVersion)"
    done
    # One time for all files, so that the same source makes the same package.
    find "$WINDOWS_TREE" -exec touch -d "@$(git log -1 --format=%ct)" {} +
}

# makeInstaller TREE VERSION FILE
makeInstaller() {
    makensis -V2 -WX -INPUTCHARSET UTF8 -DVERSION="$2" -DTREE="$(realpath "$1")" -DSIZE="$(du -sk "$1" | cut -f1)" \
        -DICON="$PWD/$WINDOWS_BUILD/generated/program.ico" -DOUTPUT="$(realpath "$3")" packaging/windows/installer.nsi
}

# An office with its programs for any folder: its settings name their folders from that of the programs.
makeZip() {
    local file folder="$1-zip"
    file=$(realpath "$2")
    rm -rf "$folder" "$file"
    mkdir -p "$folder/ORV"
    cp -r --preserve=timestamps "$1/office/." "$1/programs/." "$folder/ORV"
    LC_ALL=C sed -i 's/C:\\ORV/../' "$folder/ORV/SYS/system.ini"
    find "$folder/ORV" -newer "$1" -exec touch -r "$1" {} +
    (cd "$folder" && find ORV | LC_ALL=C sort | TZ=UTC zip -qX "$file" -@)
}

# The older version has the same programs, another manual, and a library and a page that are gone in the newer one.
testWindowsPackage() {
    local older="$WINDOWS_TREE-older"
    rm -rf "$older"
    cp -r "$WINDOWS_TREE" "$older"
    echo "an older version" | tee -a "$older/programs/BIN/KELT_COS.EXE" >>"$older/programs/HLP/manual/index.md"
    touch "$older/programs/BIN/gone.dll" "$older/programs/HLP/manual/gone.md"
    makeInstaller "$older" 0.9.0 "$WINDOWS_BUILD/older-setup.exe"
    xvfb-run -a packaging/windows/package_test.sh "$older" "$WINDOWS_BUILD/older-setup.exe" "$WINDOWS_TREE" "$1-setup.exe" "$1.zip" \
        "$(windowsVersion)"
}

windowsPackage() {
    buildWindows
    local name; name="$WINDOWS_BUILD/company-information-$(windowsVersion)"
    makeWindowsTree
    makeInstaller "$WINDOWS_TREE" "$(windowsVersion)" "$name-setup.exe"
    makeZip "$WINDOWS_TREE" "$name.zip"
    [ "${1:-}" != test ] || testWindowsPackage "$name"
    ls -l "$name"-setup.exe "$name.zip"
}
