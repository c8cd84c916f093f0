# The benchmarks, on the optimised build.

bench() {
    buildPreset release bench >/dev/null
    rm -rf build/bench-offices
    mkdir -p build/bench-offices
    local name
    for name in ${1:-start save list fit thumb factors office}; do
        case "$name" in
            fit | thumb | factors) pictureBench "$name" ;;
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

# The peers and the photos come from Debian, and are installed only for the benchmarks that need them.
pictureBench() {
    PACKAGES=(graphicsmagick libvips-tools jpegoptim)
    needPackages
    buildPreset release bench_pictures >/dev/null
    makePhotos
    local photos=build/bench-photos/large
    [ "$1" != factors ] || photos=build/bench-photos/small
    build/release/tools/bench/bench_pictures "$1" "$photos" build/bench-photos/work
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
