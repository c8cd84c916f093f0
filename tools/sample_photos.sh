#!/bin/sh
# Draws the photos of the sample office again: ./tools/sample_photos.sh [SAMPLE_FOLDER]. Needs ImageMagick's convert and
# a Japanese font. Every picture is within the limits of the sample's settings.
set -eu

images=${1:-$(dirname "$0")/../sample}/C/ORV/IMG
font=${FONT:-/usr/share/fonts/opentype/noto/NotoSansCJK-Bold.ttc}

# boxes COLOUR X Y WIDTH HEIGHT STEP_X COLUMNS STEP_Y ROWS: a grid of equal boxes
boxes() {
    row=0
    while [ "$row" -lt "$9" ]; do
        column=0
        while [ "$column" -lt "$7" ]; do
            x=$(($2 + column * $6)) y=$(($3 + row * $8))
            printf "fill %s rectangle %d,%d %d,%d\n" "$1" "$x" "$y" $((x + $4)) $((y + $5))
            column=$((column + 1))
        done
        row=$((row + 1))
    done
}

# photo FILE SKY GROUND: the drawing on standard input above two plain halves, with a camera's blur and grain
photo() {
    convert -size 640x340 "gradient:$2" -size 640x140 "gradient:$3" -append -font "$font" -draw "$(cat)" \
        -seed 1 -blur 0x0.6 -attenuate 0.04 +noise Gaussian -strip -quality 82 -sampling-factor 2x2 "$1"
}

outside() {
    echo "fill #f4f7fa circle 90,70 120,70 circle 125,62 160,62 circle 165,74 192,74"
    echo "fill #ffffff circle 520,50 545,50 circle 552,44 582,44 circle 586,54 606,54"
    echo "fill #7d8a94 rectangle 0,190 150,380 fill #98836f rectangle 500,160 640,380"
    boxes "#56636e" 14 205 20 26 34 4 42 4
    boxes "#5f5144" 516 178 22 28 36 4 46 4
    echo "fill #d9d2c5 rectangle 160,70 490,390 fill #b9b0a0 rectangle 160,62 490,74"
    echo "fill #c6bdad polygon 490,62 512,84 512,390 490,390"
    boxes "#4d6f8c" 184 92 56 40 74 4 62 3
    boxes "#8fb4cf" 184 92 26 18 74 4 62 3
    echo "fill #1d4f91 rectangle 160,276 490,316 fill #f2c230 rectangle 160,314 490,320"
    echo "fill white font-size 25 text 213,305 'あおぞら架空不動産'"
    echo "fill #32404b rectangle 176,324 474,390 fill #a9c7d8 rectangle 182,330 300,390"
    echo "fill #bcd7e5 rectangle 306,330 378,390 fill #a9c7d8 rectangle 384,330 468,390"
    boxes "#fffdf2" 190 338 20 26 26 4 32 2
    boxes "#fff3d0" 392 338 18 26 25 3 32 2
    echo "fill #32404b rectangle 340,330 344,390 fill #e8e4da rectangle 348,358 352,374"
    echo "fill #a8a69f rectangle 0,388 640,404 fill #8d8b85 rectangle 0,402 640,408"
    echo "fill #eeeeea polygon 60,440 150,440 132,452 38,452 polygon 260,440 350,440 344,452 246,452"
    echo "fill #eeeeea polygon 460,440 550,440 556,452 452,452"
    echo "fill #6b4f34 rectangle 78,320 86,394 fill #4f8a41 circle 82,296 116,296 fill #65a353 circle 72,284 92,284"
    echo "fill #6b4f34 rectangle 560,326 567,394 fill #4b8240 circle 563,300 594,300 fill #619c50 circle 556,290 574,290"
}

inside() {
    echo "fill #efe9dc rectangle 0,0 640,60 fill #fffef6 polygon 90,14 230,14 214,40 112,40 polygon 400,14 540,14 520,40 422,40"
    echo "fill #d6cbb6 rectangle 0,58 640,66"
    echo "fill #8a6a48 rectangle 30,92 304,250 fill #f7f4ec rectangle 36,98 298,244"
    boxes "#ffffff" 46 106 54 60 63 4 68 2
    boxes "#7aa5c4" 50 110 46 24 63 4 68 2
    boxes "#c9533c" 50 138 30 5 63 4 68 2
    boxes "#9a9a94" 50 148 44 3 63 4 68 2
    echo "fill #1d4f91 rectangle 336,86 610,118 fill white font-size 19 text 396,110 'お部屋さがし窓口'"
    echo "fill #bfd9e6 rectangle 350,132 470,250 fill #d7e9f1 polygon 350,132 420,132 350,220"
    echo "fill #f5f2ea rectangle 408,132 412,250 rectangle 350,188 470,192"
    echo "fill #7b5b3c rectangle 500,140 606,340"
    boxes "#c7b48f" 508 148 40 40 48 2 48 4
    boxes "#3f6ea3" 512 152 7 36 10 3 48 4
    boxes "#b5463a" 560 154 8 34 12 3 48 4
    echo "fill #b98a56 polygon 40,318 470,318 500,350 20,350 fill #8f6538 rectangle 20,350 500,430"
    boxes "#9d7244" 32 360 84 60 94 5 80 1
    echo "fill #2b2f33 rectangle 96,258 178,312 fill #6d93b8 rectangle 101,263 173,305 fill #2b2f33 rectangle 130,312 144,322"
    echo "fill #2b2f33 rectangle 326,258 408,312 fill #6d93b8 rectangle 331,263 403,305 fill #2b2f33 rectangle 360,312 374,322"
    echo "fill #fdfdf8 polygon 206,326 276,326 284,340 200,340 fill #d9d9d2 polygon 426,326 456,326 462,340 424,340"
    echo "fill #365f91 roundrectangle 70,392 150,460 10,10 fill #2b4d78 rectangle 84,452 92,478 rectangle 128,452 136,478"
    echo "fill #365f91 roundrectangle 230,392 310,460 10,10 fill #2b4d78 rectangle 244,452 252,478 rectangle 288,452 296,478"
    echo "fill #365f91 roundrectangle 390,392 470,460 10,10 fill #2b4d78 rectangle 404,452 412,478 rectangle 448,452 456,478"
    echo "fill #a3522f polygon 556,410 604,410 596,470 564,470 fill #4b8a44 circle 580,376 612,376 fill #67a55a circle 566,360 584,360"
}

reception() {
    echo "fill #c9b79c rectangle 0,0 640,24 fill #7a5d42 rectangle 0,22 640,30"
    echo "fill #6f4e37 rectangle 150,56 490,214 fill #83603f rectangle 158,64 482,206"
    boxes "#795838" 158 64 2 142 54 7 1 1
    echo "fill #f3e3b5 font-size 24 text 201,124 'なにわ架空ハウジング'"
    echo "fill #f3e3b5 font-size 19 text 291,166 '受　付'"
    echo "fill #fff4cf circle 110,92 110,66 circle 530,92 530,66 fill #fffbe8 circle 110,92 110,78 circle 530,92 530,78"
    echo "fill #a98a63 rectangle 104,118 116,140 rectangle 524,118 536,140"
    echo "fill #e9e2d6 rectangle 96,268 544,286 fill #d8cdbb polygon 96,286 544,286 528,424 112,424"
    echo "fill #b8a88f rectangle 128,304 248,406 fill #c5b69e rectangle 132,308 244,402"
    echo "fill #b8a88f rectangle 260,304 380,406 fill #c5b69e rectangle 264,308 376,402"
    echo "fill #b8a88f rectangle 392,304 512,406 fill #c5b69e rectangle 396,308 508,402"
    echo "fill #2e2e30 roundrectangle 356,228 428,270 4,4 fill #86a8c4 rectangle 361,233 423,264"
    echo "fill #3a3a3c roundrectangle 180,252 234,270 5,5 fill #55555a roundrectangle 176,244 238,254 5,5"
    echo "fill #6fa9bd rectangle 470,226 500,268 fill #d7607c circle 474,214 486,214 fill #e58aa0 circle 492,206 504,206"
    echo "fill #f0c24b circle 484,196 494,196 fill #4d8a4a polygon 478,226 484,206 490,226"
    echo "fill #c9a227 circle 304,262 304,250 fill #8a6f1a rectangle 290,264 318,269"
    echo "fill #43362b rectangle 30,372 38,452 rectangle 84,372 92,452 fill #8e3b3b roundrectangle 20,340 100,394 8,8"
    echo "fill #43362b rectangle 552,372 560,452 rectangle 604,372 612,452 fill #8e3b3b roundrectangle 542,340 620,394 8,8"
    echo "fill #9c8a6e polygon 190,440 450,440 500,479 140,479 fill #b3a284 polygon 206,446 434,446 470,474 170,474"
}

outside | photo "$images/1/000004601COS00000000_01.jpg" "#6fa8dc-#dceaf5" "#77777a-#55555a"
inside | photo "$images/2/000004601COS00000000_02.jpg" "#f6f0e2-#e6dcc6" "#b99f7c-#94795a"
reception | photo "$images/1/000004603COS00000000_01.jpg" "#e8ddcb-#d5c6ae" "#8c7b6a-#6d5f51"
