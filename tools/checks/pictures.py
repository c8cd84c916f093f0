#!/usr/bin/env python3
"""Compares the pictures of the documents with new ones of the same program.

    tools/checks/pictures.py PICTURES NEW

Prints one line for each picture that no longer fits and ends with 1 when there is any. A pixel may be like any of its
neighbours, and the rest is averaged over small squares. So another smoothing of the letters is not a difference. A moved,
missing or new control is one.
"""

import pathlib
import re
import subprocess
import sys

SQUARE = 6  # pixels
MOST_DIFFERENCE = 12  # of 255, the mean of a square
MOST_SQUARES = 3  # that may differ
REPOSITORY = pathlib.Path(__file__).parents[2]


def machine_boxes():
    """The fields of the environment page, which describe the machine."""
    layout = (REPOSITORY / "src/pages/layout/comp_inp4_layout.cpp").read_text(encoding="utf-8")
    found = re.findall(r'\{"(lbl_\w+)",\s*-1, \{\s*(\d+),\s*(\d+),\s*(\d+),\s*(\d+)\}', layout)
    return [tuple(map(int, box)) for name, *box in found if not name.endswith("_Title")]


def grey(picture, *change):
    """Width, height and the grey pixels of the picture, after an operation of ImageMagick on them."""
    command = ["convert", picture, "-colorspace", "Gray", *change, "-depth", "8", "pgm:-"]
    data = subprocess.run(command, check=True, capture_output=True).stdout
    header = re.match(rb"P5\s+(\d+)\s+(\d+)\s+255\s", data)
    return int(header[1]), int(header[2]), data[header.end():]


def beyond(one, other):
    """How far each pixel of one picture is outside the range of the pixels around its place in the other."""
    low, high = (grey(other, "-statistic", extreme, "3x3")[2] for extreme in ("Minimum", "Maximum"))
    return [max(least - pixel, pixel - most, 0) for pixel, least, most in zip(grey(one)[2], low, high)]


def squares(width, pixels):
    """The mean of each whole square."""
    means = {}
    for top in range(0, len(pixels) // width - SQUARE + 1, SQUARE):
        rows = [pixels[(top + y) * width:(top + y + 1) * width] for y in range(SQUARE)]
        for left in range(0, width - SQUARE + 1, SQUARE):
            means[left, top] = sum(sum(row[left:left + SQUARE]) for row in rows) / SQUARE**2
    return means


def inside(place, boxes):
    return any(x - SQUARE < place[0] < x + w and y - SQUARE < place[1] < y + h for x, y, w, h in boxes)


def fault(old, new, ignored):
    if not new.is_file():
        return "there is no new one"
    size, other = grey(old)[:2], grey(new)[:2]
    if size != other:
        return f"the size is {other[0]} x {other[1]} instead of {size[0]} x {size[1]}"
    differences = [max(both) for both in zip(beyond(old, new), beyond(new, old))]
    places = [place for place, mean in squares(size[0], differences).items()
              if mean > MOST_DIFFERENCE and not inside(place, ignored)]
    if len(places) <= MOST_SQUARES:
        return ""
    left, top = (min(place[axis] for place in places) for axis in (0, 1))
    right, bottom = (max(place[axis] for place in places) + SQUARE for axis in (0, 1))
    return f"{len(places)} squares differ, between ({left},{top}) and ({right},{bottom})"


def main():
    pictures, new = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    names = sorted(picture.name for picture in pictures.glob("*.png"))
    faults = 0 if names else 1
    for name in names:
        ignored = machine_boxes() if name == "page4.png" else []
        if words := fault(pictures / name, new / name, ignored):
            print(f"{name} differs from the program's: {words}")
            faults += 1
    return 1 if faults else 0


sys.exit(main())
