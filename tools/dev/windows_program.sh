# The files of the program for Windows.

WINDOWS_BUILD=build/windows

# Copies the program, the two search programs, the store tool and all that they need to a folder.
placeWindowsProgram() {
    local folder="$1" qt
    qt=$(windowsLibrary qt)
    mkdir -p "$folder/qt/platforms"
    cp "$WINDOWS_BUILD/src/app/company_information.exe" "$folder/KELT_COS.EXE"
    cp "$WINDOWS_BUILD"/programs/search/KELT_{ADD,LINE}.EXE "$WINDOWS_BUILD/programs/store/ORV_STORE.EXE" "$folder/"
    cp "$qt/plugins/platforms/qwindows.dll" "$folder/qt/platforms/"
    cp "$(windowsLibrary curl)/bin/libcurl.dll" "$(windowsLibrary pq)/bin/libpq.dll" "$folder/"
    cp /usr/share/qt6/translations/qtbase_ja.qm "$folder/qt/"
    printf '[Paths]\r\nPrefix=.\r\nPlugins=qt\r\nTranslations=qt\r\n' >"$folder/qt.conf"
    placeLibraries "$folder"
    find "$folder" -name '*.dll' -exec $WINDOWS_HOST-strip {} +
}

# Copies the libraries that the programs and libraries in a folder name, except those of Windows.
placeLibraries() {
    local folder="$1" name file added=yes
    while [ "$added" = yes ]; do
        added=no
        while read -r name; do
            [ -e "$folder/$name" ] && continue
            file=$(findLibrary "$name")
            if [ -n "$file" ]; then
                cp "$file" "$folder/"
                added=yes
            fi
        done < <(find "$folder" -iname '*.dll' -o -iname '*.exe' | xargs $WINDOWS_HOST-objdump -p 2>/dev/null |
            sed -n 's/^\s*DLL Name: //p' | sort -u)
    done
}

# Prints the place of a library that is not part of Windows.
findLibrary() {
    local place
    for place in "$(windowsLibrary qt)/bin/$1" "$($WINDOWS_HOST-g++-posix -print-file-name="$1")" "/usr/$WINDOWS_HOST/lib/$1"; do
        if [ -e "$place" ]; then
            echo "$place"
            return
        fi
    done
}
