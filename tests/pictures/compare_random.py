#!/usr/bin/env python3
"""Compares random graphic programs with pictures made from formulas.

compare_random.py RUN_LANG ZOKA FIRST LAST has the test runner run the programs of the seeds FIRST
to LAST - 1 and prints each whose screenshot differs. It is slow and no part of the tests; a program
that it finds belongs, made small, in tests/lang/graphics.
"""

import pathlib
import random
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True

from glyphs import Glyphs
from machine import Machine, single
from make_pictures import write_png

MODES = ("PSET", "PRESET", "OR", "AND", "XOR")
STATEMENTS = ("line", "line_step", "box", "box_fill", "circle", "paint", "get", "put", "roll",
              "palette", "pset", "screen", "colour_mode")


def text(value):
    """A number as a program writes it, nothing for one left out."""
    return "" if value is None else ("%.6f" % value).rstrip("0").rstrip(".")


class Writer:
    """Writes a random program and draws its picture."""

    def __init__(self, glyphs, seed):
        self.random = random.Random(seed)
        self.machine = Machine(glyphs)
        self.lines = []
        self.picture = None
        mode = self.random.randint(0, 3)
        self.add("SCREEN %d:CLS 3:DIM A%%(9)" % mode)
        self.machine.screen(mode)
        for _ in range(self.random.randint(8, 25)):
            getattr(self, self.random.choice(STATEMENTS))()
        self.machine.write("Ok")

    def add(self, line):
        self.lines.append("%d %s\n" % (len(self.lines) * 10 + 10, line))

    def number(self, low, high):
        return self.random.randint(low, high)

    def colour(self):
        return self.number(0, 15)

    def near(self):
        return self.number(0, 639) if self.random.random() < 0.7 else self.number(-200, 900)

    def coordinate(self):
        far = self.random.random() < 0.1
        return self.random.choice((-1, 1)) * self.number(1000, 1000000) if far else self.near()

    def corners(self):
        return [self.coordinate() for _ in range(4)]

    def line(self):
        ends, colour = self.corners(), self.colour()
        self.add("LINE(%d,%d)-(%d,%d),%d" % (*ends, colour))
        self.machine.line(*ends, colour)

    def line_step(self):
        x, y, colour = self.coordinate(), self.coordinate(), self.colour()
        last_x, last_y = self.machine.last
        self.add("LINE-STEP(%d,%d),%d" % (x, y, colour))
        self.machine.line(last_x, last_y, single(last_x + x), single(last_y + y), colour)

    def box(self):
        corners, colour = self.corners(), self.colour()
        self.add("LINE(%d,%d)-(%d,%d),%d,B" % (*corners, colour))
        self.machine.box(*corners, colour)

    def box_fill(self):
        corners, colour = self.corners(), self.colour()
        fill = self.random.choice((None, self.colour()))
        self.add("LINE(%d,%d)-(%d,%d),%d,BF" % (*corners, colour) +
                 ("" if fill is None else ",%d" % fill))
        self.machine.box_fill(*corners, colour, fill)

    def angle(self):
        return self.random.choice((None, None, round(self.random.uniform(-6.2, 6.2), 2)))

    def circle(self):
        cx, cy = self.random.choice(((self.near(), self.near()),
                                     (round(self.random.uniform(-50, 690), 2),
                                      round(self.random.uniform(-50, 450), 2))))
        radius = self.random.choice((self.number(0, 8), self.number(0, 150),
                                     round(self.random.uniform(0, 200), 2)))
        ratio = self.random.choice((None, round(self.random.uniform(0, 3), 2)))
        start, end, colour = self.angle(), self.angle(), self.colour()
        filled = self.random.choice((False, True))
        fill = self.random.choice((None, self.colour())) if filled else None
        line = "CIRCLE(%s,%s),%s,%d,%s,%s,%s" % (text(cx), text(cy), text(radius), colour,
                                                 text(start), text(end), text(ratio))
        line = line + ",F" if filled else line.rstrip(",")
        self.add(line if fill is None else line + ",%d" % fill)
        angles = (angle if angle is None else single(angle) for angle in (start, end))
        self.machine.circle(cx, cy, radius, colour, *angles, ratio, filled, fill)

    def paint(self):
        x, y = self.number(-5, 645), self.number(-5, 405)
        colour, border = self.colour(), self.colour()
        self.add("PAINT(%d,%d),%d,%d" % (x, y, colour, border))
        self.machine.paint(x, y, colour, border)

    def get(self):
        x, y = self.near(), self.near()
        ends = x, y, x + self.number(1, 80), y + self.number(1, 80)
        self.add("GET@(%d,%d)-(%d,%d),A%%" % ends)
        self.picture = self.machine.get(*ends)

    def put(self):
        if self.picture is not None:
            x, y, mode = self.near(), self.near(), self.number(0, 4)
            self.add("PUT@(%d,%d),A%%,%s" % (x, y, MODES[mode]))
            self.machine.put(x, y, self.picture, mode)

    def roll(self):
        up, left, flag = self.number(-60, 60), self.number(-60, 60), self.random.choice("YN")
        self.add("ROLL %d,%d,%s" % (up, left, flag))
        self.machine.roll(up, left, self.machine.back if flag == "Y" else 0)

    def palette(self):
        mode = self.machine.mode
        number = self.number(0, 15 if mode == 2 else 7)
        code = self.number(0, 4095 if mode else 7)
        self.add("COLOR=(%d,%d)" % (number, code))
        self.machine.change_palette(number, code)

    def pset(self):
        x, y, colour = self.coordinate(), self.coordinate(), self.colour()
        self.add("PSET(%d,%d),%d" % (x, y, colour))
        self.machine.pset(x, y, colour)

    def screen(self):
        mode = self.number(0, 3)
        self.add("SCREEN %d" % mode)
        self.machine.screen(mode)

    def colour_mode(self):
        mode, back = self.number(0, 2), self.colour()
        self.add("COLOR 7,%d,,,%d" % (back, mode))
        self.machine.back = back
        self.machine.colour_mode(mode)


def main(run_lang, zoka, first, last):
    glyphs = Glyphs()
    with tempfile.TemporaryDirectory() as root:
        area = pathlib.Path(root) / "random"
        area.mkdir()
        for seed in range(int(first), int(last)):
            writer = Writer(glyphs, seed)
            (area / "program.bas").write_text("".join(writer.lines))
            write_png(area / "program.png", writer.machine.composition())
            result = subprocess.run([run_lang, "--zoka", zoka, root], stdout=subprocess.PIPE,
                                    check=False)
            if result.returncode != 0:
                print("seed", seed)
                print("".join(writer.lines) + result.stdout.decode())


if __name__ == "__main__":
    main(*sys.argv[1:])
