#!/usr/bin/env python3
"""Makes the expected pictures of tests/lang, all or those named, from formulas.

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
import samples
import texts
from glyphs import Glyphs
from machine import HEIGHT, WIDTH, Machine

LANG = pathlib.Path(__file__).resolve().parent.parent / "lang"
SUBJECTS = (lines, circles, fills, blocks, palettes, texts, samples)
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
    """Each picture's folder, name and function."""
    for subject in SUBJECTS:
        folder = LANG / ("samples" if subject is samples else "graphics")
        for name, function in inspect.getmembers(subject, inspect.isfunction):
            parameters = list(inspect.signature(function).parameters)
            if parameters == ["m"] and not name.startswith("_"):
                yield folder, name, function


def main(wanted):
    glyphs = Glyphs()
    for folder, name, function in functions():
        if wanted and name not in wanted:
            continue
        machine = Machine(glyphs)
        function(machine)
        machine.write("Ok")
        write_png(folder / (name + ".png"), machine.composition())
        print(name)


if __name__ == "__main__":
    main(sys.argv[1:])
