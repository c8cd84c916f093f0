# Builds the last commit twice, in folders of different length and without a compiler cache, and compares every
# installed file.

installedFrom() {
    mkdir -p "$1"
    git archive HEAD | tar -x -C "$1"
    (
        cd "$1"
        export CCACHE_DISABLE=1
        buildPreset product >/dev/null
        DESTDIR="$PWD/installed" cmake --install build/product --prefix /usr >/dev/null
        cd installed
        find . -type f -exec sha256sum {} + | sort -k 2
    )
}

reproduce() {
    local scratch; scratch=$(mktemp -d)
    # shellcheck disable=SC2064  # the folder of now
    trap "rm -rf '$scratch'" EXIT
    installedFrom "$scratch/one" >"$scratch/first"
    installedFrom "$scratch/another/folder" >"$scratch/second"
    grep -E 'EXE$|/orv_' "$scratch/first"
    if [ ! -s "$scratch/first" ] || ! diff "$scratch/first" "$scratch/second"; then
        echo "The builds differ." >&2
        return 1
    fi
    echo "Both builds are identical: $(wc -l <"$scratch/first") files."
}
