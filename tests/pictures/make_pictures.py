#!/usr/bin/env python3
"""Makes the expected pictures of tests/lang/graphics, all or those named, from formulas.

The engine is not used. A picture ends with the "Ok" that a program writes where it ends.
"""

import inspect
import pathlib
import struct
import sys
import zlib

sys.dont_write_bytecode = True

import blocks
import circles
import fills
import lines
import palettes
import texts
from glyphs import Glyphs
from machine import HEIGHT, WIDTH, Machine

FOLDER = pathlib.Path(__file__).resolve().parent.parent / "lang" / "graphics"
SUBJECTS = (lines, circles, fills, blocks, palettes, texts)
PALETTE_COLOURS = 3


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def write_png(path, pixels):
    """A picture of at most 256 colours with a palette."""
    colours = sorted(set(pixels))
    number = {colour: bytes([i]) for i, colour in enumerate(colours)}
    rows = (b"\0" + b"".join(number[p] for p in pixels[y * WIDTH:(y + 1) * WIDTH])
            for y in range(HEIGHT))
    header = struct.pack(">IIBBBBB", WIDTH, HEIGHT, 8, PALETTE_COLOURS, 0, 0, 0)
    path.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) +
                     chunk(b"PLTE", bytes(part for colour in colours for part in colour)) +
                     chunk(b"IDAT", zlib.compress(b"".join(rows), 9)) + chunk(b"IEND", b""))


def functions():
    for subject in SUBJECTS:
        for name, function in inspect.getmembers(subject, inspect.isfunction):
            if function.__module__ == subject.__name__:
                yield name, function


def main(wanted):
    glyphs = Glyphs()
    for name, function in functions():
        if wanted and name not in wanted:
            continue
        machine = Machine(glyphs)
        function(machine)
        machine.write("Ok")
        write_png(FOLDER / (name + ".png"), machine.composition())
        print(name)


if __name__ == "__main__":
    main(sys.argv[1:])
