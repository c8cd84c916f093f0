#!/bin/sh
# Makes the photos for the picture benchmarks from Debian's wallpapers: ./make_photos.sh FOLDER
# The large ones have the grain of a camera's sensor and a camera's format: baseline, colour at half the resolution.
set -eu

folder=$1
wallpapers=/usr/share/backgrounds/mate
mkdir -p "$folder/large"

# large NAME SOURCE SIZE [OPTION...]
large() {
    name=$1 source=$2 size=$3
    shift 3
    [ -s "$folder/large/$name.jpg" ] || convert "$wallpapers/$source" -resize "$size^" -gravity center -extent "$size" \
        -seed 1 -attenuate 0.15 +noise Gaussian -strip -sampling-factor 2x2 -quality 92 "$@" "$folder/large/$name.jpg"
}

large photo-12 nature/Garden.jpg 4000x3000
large photo-24 nature/LadyBird.jpg 6000x4000
large photo-48 nature/Wood.jpg 8000x6000
large photo-48-progressive nature/Wood.jpg 8000x6000 -interlace Plane
