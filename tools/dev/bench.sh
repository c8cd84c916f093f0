# The benchmarks, on the optimised build.

bench() {
    buildPreset release bench >/dev/null
    rm -rf build/bench-offices
    mkdir -p build/bench-offices
    local name
    for name in ${1:-start save list fit thumb office}; do
        case "$name" in
            fit | thumb) pictureBench "$name" ;;
            office) officeBench "${@:2}" ;;
            clicks)
                makePhotos
                build/release/tools/bench/bench build/bench-offices clicks build/bench-photos/large/photo-24.jpg
                ;;
            soak) build/release/tools/bench/bench build/bench-offices soak "${@:2}" ;;
            *) QT_QPA_PLATFORM=offscreen build/release/tools/bench/bench build/bench-offices "$name" ;;
        esac
    done
}

pictureBench() {
    buildPreset release bench_pictures >/dev/null
    makePhotos
    build/release/tools/bench/bench_pictures "$1" build/bench-photos/large build/bench-photos/work
    [ "$1" != thumb ] || QT_QPA_PLATFORM=offscreen build/release/tools/bench/bench build/bench-offices window \
        build/bench-photos/large/photo-48.jpg
}

makePhotos() {
    mkdir -p build/bench-photos/work
    tools/bench/make_photos.sh build/bench-photos
}

# Many terminals on one store: [COMPANIES [SECONDS [STORE]]].
officeBench() {
    buildPreset release bench_office >/dev/null
    build/release/tools/bench_office/bench_office build/bench-offices "$@"
}
