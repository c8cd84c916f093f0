#!/usr/bin/env python3
"""make_icon.py SVG ICO: draws rectangles and polygons at each size of a Windows icon.

Needs no library, so that a build needs only Python. The same source gives the same icon everywhere.
"""
import struct
import sys
import xml.etree.ElementTree as ET
import zlib

SIZES = (16, 20, 24, 32, 40, 48, 64, 256)
LARGEST_BITMAP = 64  # larger pictures are stored as PNG
SAMPLES = 16         # lines of samples per pixel
CLEAR = (0.0, 0.0, 0.0, 0.0)


def shapes_of(path):
    """Returns the length of a side, and the corners and the colour of each shape in the order of painting."""
    root = ET.parse(path).getroot()
    side = float(root.get("viewBox").split()[2])
    shapes = []
    for element in root:
        kind = element.tag.rsplit("}", 1)[-1]
        if kind == "rect":
            x, y, width, height = (float(element.get(name)) for name in ("x", "y", "width", "height"))
            corners = [(x, y), (x + width, y), (x + width, y + height), (x, y + height)]
        elif kind == "polygon":
            corners = [tuple(map(float, corner.split(","))) for corner in element.get("points").split()]
        else:
            raise SystemExit(f"{path}: {kind} is neither a rectangle nor a polygon")
        shapes.append((corners, tuple(bytes.fromhex(element.get("fill")[1:]))))
    return side, shapes


def crossings(corners, y):
    """Returns the places at which the outline crosses a horizontal line, from left to right."""
    ends = zip(corners, corners[1:] + corners[:1])
    return sorted(x0 + (y - y0) * (x1 - x0) / (y1 - y0) for (x0, y0), (x1, y1) in ends if (y0 <= y) != (y1 <= y))


def coverage(corners, line, size):
    """Returns the covered part of each pixel of a line."""
    covered = [0.0] * size
    for sample in range(SAMPLES):
        places = crossings(corners, line + (sample + 0.5) / SAMPLES)
        for left, right in zip(places[::2], places[1::2]):
            for x in range(int(left), min(int(right) + 1, size)):
                covered[x] += max(0.0, min(right, x + 1) - max(left, x)) / SAMPLES
    return covered


def painted(under, colour, part):
    """Returns a pixel under which `part` of another colour is painted over it."""
    alpha = part + under[3] * (1 - part)
    if not alpha:
        return CLEAR
    return tuple((new * part + old * under[3] * (1 - part)) / alpha for new, old in zip(colour, under)) + (alpha,)


def draw(side, shapes, size):
    """Returns the lines of pixels, each as red, green, blue (0 to 255) and alpha."""
    lines = []
    for number in range(size):
        line = [CLEAR] * size
        for corners, colour in shapes:
            scaled = [(x * size / side, y * size / side) for x, y in corners]
            line = [painted(pixel, colour, part) if part else pixel for pixel, part in zip(line, coverage(scaled, number, size))]
        lines.append([(round(r), round(g), round(b), round(a * 255)) for r, g, b, a in line])
    return lines


def bitmap(lines):
    size = len(lines)
    header = struct.pack("<IiiHHIIiiII", 40, size, size * 2, 1, 32, 0, 0, 0, 0, 0, 0)
    colours = b"".join(bytes((b, g, r, a)) for line in reversed(lines) for r, g, b, a in line)
    mask_line = (size + 31) // 32 * 4
    mask = b"".join(
        int("".join("0" if a else "1" for *_, a in line).ljust(mask_line * 8, "0"), 2).to_bytes(mask_line, "big")
        for line in reversed(lines))
    return header + colours + mask


def png(lines):
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    rows = b"".join(b"\0" + bytes(value for pixel in line for value in pixel) for line in lines)
    header = struct.pack(">IIBBBBB", len(lines), len(lines), 8, 6, 0, 0, 0)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b"")


def main(source, target):
    side, shapes = shapes_of(source)
    pictures = []
    for size in SIZES:
        lines = draw(side, shapes, size)
        pictures.append((size % 256, bitmap(lines) if size <= LARGEST_BITMAP else png(lines)))
    place = 6 + 16 * len(pictures)
    entries = b""
    for size, data in pictures:
        entries += struct.pack("<BBBBHHII", size, size, 0, 0, 1, 32, len(data), place)
        place += len(data)
    with open(target, "wb") as icon:
        icon.write(struct.pack("<HHH", 0, 1, len(pictures)) + entries + b"".join(data for _, data in pictures))


main(*sys.argv[1:])
