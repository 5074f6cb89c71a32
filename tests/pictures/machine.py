"""The simulated screen by its formulas: every pixel is tested against the rule of its shape.

This is a second, slow and plain reading of what the graphic statements do. It shares nothing with
the engine and never calls it; the expected pictures of tests/lang/graphics come from here.
"""

import math
import struct
from fractions import Fraction

WIDTH, HEIGHT = 640, 400
BLACK = (0, 0, 0)
NIBBLE = 17
DIM, HALF = 0x77, 0xAA
KANJI_SIZE = 16
GLYPH_HEIGHT = 16
PSET, PRESET, OR, AND, XOR = range(5)
NO_PAGE = 4
EPSILON = 1e-9


def single(value):
    """The nearest single-precision number."""
    return struct.unpack("f", struct.pack("f", value))[0]


def whole(value):
    """The integer that a coordinate is rounded to: halves go upwards."""
    return math.floor(value + 0.5)


def code_to_rgb(code):
    """0xGRB, four bits each."""
    return ((code >> 4 & 15) * NIBBLE, (code >> 8 & 15) * NIBBLE, (code & 15) * NIBBLE)


DIGITAL = [code_to_rgb(c) for c in (0x000, 0x00F, 0x0F0, 0x0FF, 0xF00, 0xF0F, 0xFF0, 0xFFF)]
SECOND_EIGHT = [(DIM, DIM, DIM)] + [
    tuple(HALF if part else 0 for part in colour) for colour in DIGITAL[1:]
]


class Ellipse:
    """The pixels of an ellipse, filled and outlined, and those of its arcs."""

    def __init__(self, cx, cy, rx, ry):
        self.cx = whole(cx) if rx < 0.5 else cx
        self.cy = whole(cy) if ry < 0.5 else cy
        self.rx, self.ry = rx, ry

    def holds(self, x, y):
        dy = (y - self.cy) / (self.ry + 0.5)
        if abs(dy) >= 1:
            return False
        room = 1 - dy * dy - ((x - self.cx) / (self.rx + 0.5)) ** 2
        return room > 0 if abs(room) > EPSILON else self.holds_exactly(x, y)

    def holds_exactly(self, x, y):
        """The same without rounding; a pixel on the very border does not belong to it."""
        across = (Fraction(x) - Fraction(self.cx)) / (Fraction(self.rx) + Fraction(1, 2))
        down = (Fraction(y) - Fraction(self.cy)) / (Fraction(self.ry) + Fraction(1, 2))
        return across ** 2 + down ** 2 < 1

    def box(self):
        """Everything on the screen that can belong to it."""
        left, right = math.floor(self.cx - self.rx) - 1, math.ceil(self.cx + self.rx) + 1
        top, bottom = math.floor(self.cy - self.ry) - 1, math.ceil(self.cy + self.ry) + 1
        for y in range(max(top, 0), min(bottom, HEIGHT - 1) + 1):
            for x in range(max(left, 0), min(right, WIDTH - 1) + 1):
                yield x, y

    def filled(self):
        if self.rx < 0 or self.ry < 0:
            return []
        return [(x, y) for x, y in self.box() if self.holds(x, y)]

    def outline(self):
        return [
            (x, y)
            for x, y in self.filled()
            if not (self.holds(x - 1, y) and self.holds(x + 1, y)
                    and self.holds(x, y - 1) and self.holds(x, y + 1))
        ]

    def end_point(self, degrees):
        angle = math.radians(degrees)
        return (whole(self.cx + self.rx * math.cos(angle)),
                whole(self.cy - self.ry * math.sin(angle)))

    def within(self, x, y, start, span):
        """True if the pixel's angle, the parameter of the ellipse, lies in the arc."""
        if span >= 360:
            return True
        angle = math.degrees(math.atan2((self.cy - y) / (self.ry + 0.5),
                                        (x - self.cx) / (self.rx + 0.5)))
        turn = (angle - start) % 360
        return turn <= span + EPSILON or turn >= 360 - EPSILON

    def arc(self, start, span):
        pixels = [p for p in self.outline() if self.within(*p, start, span)]
        return pixels + [self.end_point(start), self.end_point(start + span)]

    def sector(self, start, span):
        pixels = [p for p in self.filled() if self.within(*p, start, span)]
        return pixels + [(whole(self.cx), whole(self.cy))]


def line_pixels(x1, y1, x2, y2):
    """All pixels of a line; in a step of its longer axis it has one pixel."""
    across = abs(x2 - x1) >= abs(y2 - y1)
    a, b = ((x1, y1), (x2, y2)) if across else ((y1, x1), (y2, x2))
    if b < a:
        a, b = b, a
    length, rise = b[0] - a[0], b[1] - a[1]
    limit = WIDTH if across else HEIGHT
    for major in range(max(a[0], 0), min(b[0], limit - 1) + 1):
        minor = a[1]
        if length > 0:
            minor += (2 * (major - a[0]) * rise + length) // (2 * length)
        yield (major, minor) if across else (minor, major)


class Machine:
    """The state that a program leaves behind; its methods are named after the statements."""

    def __init__(self, glyphs):
        self.glyphs = glyphs
        self.y_scale, self.visible = 2, True
        self.active, self.display = 0, 0
        self.fore, self.back, self.mode = 7, 0, 0
        self.last = (0, 0)
        self.palette = []
        self.init_palette()
        self.stale = [False] * 4
        self.index = [[0] * (WIDTH * HEIGHT) for _ in range(4)]
        self.real = [[BLACK] * (WIDTH * HEIGHT) for _ in range(4)]
        self.pictures = {}
        self.cols, self.rows = 80, 25
        self.cells = {}
        self.attributes = {}
        self.text_colour = 7
        self.cursor = (0, 0)

    # Palettes and pages

    def init_palette(self):
        self.palette = DIGITAL + SECOND_EIGHT

    def screen(self, mode=None, switch=None, active=None, display=None):
        """`display` is the page itself, or NO_PAGE; the codes are the program's matter."""
        if switch is not None:
            self.visible = switch < 2
        if mode is not None:
            self.y_scale = 2 if mode < 2 else 1
            if mode >= 2:
                self.active = self.active if self.active <= 1 else 0
                self.display = self.display if self.display <= 1 else 0
        if active is not None:
            self.active = active
        if display is not None:
            self.display = display
            self.rebuild()

    def rebuild(self):
        page = self.display
        if page == NO_PAGE or not self.stale[page]:
            return
        for i in range(WIDTH * (HEIGHT // self.y_scale)):
            self.real[page][i] = self.palette[self.index[page][i] & 15]
        self.stale[page] = False

    def change_palette(self, number=None, code=None):
        """COLOR=(number,code), or plain COLOR without arguments."""
        if number is None:
            self.init_palette()
        else:
            self.palette = list(self.palette)
            self.palette[number] = DIGITAL[code] if self.mode == 0 else code_to_rgb(code)
        self.stale = [True] * 4
        self.rebuild()

    def colour_mode(self, mode):
        self.mode = mode
        self.init_palette()

    # Drawing

    def point(self, x, y):
        return self.index[self.active][y * WIDTH + x]

    def plot(self, x, y, colour):
        if 0 <= x < WIDTH and 0 <= y < HEIGHT:
            self.index[self.active][y * WIDTH + x] = colour & 255
            self.real[self.active][y * WIDTH + x] = self.palette[colour & 15]

    def plot_all(self, pixels, colour):
        for x, y in pixels:
            self.plot(x, y, colour)

    def pset(self, x, y, colour=None):
        self.last = (x, y)
        self.plot(whole(x), whole(y), self.fore if colour is None else colour)

    def line(self, x1, y1, x2, y2, colour=None):
        self.last = (x2, y2)
        self.plot_all(line_pixels(whole(x1), whole(y1), whole(x2), whole(y2)),
                      self.fore if colour is None else colour)

    def box(self, x1, y1, x2, y2, colour=None):
        colour = self.fore if colour is None else colour
        for x, y in ((x1, y1), (x2, y2)):
            self.plot_all(line_pixels(x1, y, x2, y), colour)
            self.plot_all(line_pixels(x, y1, x, y2), colour)
        self.last = (x2, y2)

    def box_fill(self, x1, y1, x2, y2, colour=None, fill=None):
        colour = self.fore if colour is None else colour
        inside = colour if fill is None else fill
        for y in range(max(min(y1, y2), 0), min(max(y1, y2), HEIGHT - 1) + 1):
            for x in range(max(min(x1, x2), 0), min(max(x1, x2), WIDTH - 1) + 1):
                self.plot(x, y, inside)
        if fill is not None:
            self.box(x1, y1, x2, y2, colour)
        self.last = (x2, y2)

    def circle(self, cx, cy, radius, colour=None, start=None, end=None, ratio=None, filled=False,
               fill=None):
        colour = self.fore if colour is None else colour
        ratio = single(1 / self.y_scale if ratio is None else ratio)
        cx, cy, radius = single(cx), single(cy), single(radius)
        if ratio > 1:
            shape = Ellipse(cx, cy, single(radius / ratio), radius)
        else:
            shape = Ellipse(cx, cy, radius, single(radius * ratio))
        self.last = (cx, cy)
        if radius < 0:
            return
        inside = colour if fill is None else fill
        if start is None and end is None:
            if filled:
                self.plot_all(shape.filled(), inside)
            if not filled or fill is not None:
                self.plot_all(shape.outline(), colour)
            return
        self.arc(shape, start or 0, 6.2831855 if end is None else end, colour, filled, fill)

    def arc(self, shape, start, end, colour, filled, fill):
        first = abs(start) * 180 / 3.1415927
        span = abs(end) * 180 / 3.1415927 - first
        if abs(end) < abs(start):
            span += 360
        if filled:
            self.plot_all(shape.sector(first, span), colour if fill is None else fill)
            if fill is not None:
                self.plot_all(shape.arc(first, span), colour)
            return
        first, span = whole(first), whole(span)
        self.plot_all(shape.arc(first, span), colour)
        for negative, angle in ((start < 0, first), (end < 0, first + span)):
            if negative:
                self.plot_all(line_pixels(whole(shape.cx), whole(shape.cy),
                                          *shape.end_point(angle)), colour)

    def paint(self, x, y, paint=None, border=None):
        paint = self.fore if paint is None else paint
        border = paint if border is None else border
        self.last = (x, y)
        plane = self.index[self.active]
        todo, seen = [(x, y)], set()
        while todo:
            x, y = todo.pop()
            if not (0 <= x < WIDTH and 0 <= y < HEIGHT) or (x, y) in seen:
                continue
            if plane[y * WIDTH + x] == border:
                continue
            seen.add((x, y))
            todo += [(x - 1, y), (x + 1, y), (x, y - 1), (x, y + 1)]
        self.plot_all(seen, paint)

    # Blocks

    def get(self, x1, y1, x2, y2):
        """A picture as rows of indices; what lies off the screen reads as 0."""
        self.last = (x2, y2)
        return [[self.point(x, y) if 0 <= x < WIDTH and 0 <= y < HEIGHT else 0
                 for x in range(x1, x2 + 1)] for y in range(y1, y2 + 1)]

    def put(self, x, y, picture, mode=XOR):
        self.last = (x, y)
        for j, row in enumerate(picture):
            for i, s in enumerate(row):
                if 0 <= x + i < WIDTH and 0 <= y + j < HEIGHT:
                    d = self.point(x + i, y + j)
                    self.plot(x + i, y + j, (s, 15 - s, s | d, s & d, s ^ d)[mode])

    def put_kanji(self, x, y, code, mode=XOR, fore=None, back=None):
        fore = self.fore if fore is None else fore
        back = self.back if back is None else back
        escape = b"\x1b$B" + bytes([code >> 8, code & 255]) + b"\x1b(B"
        dots = self.glyphs.dots(escape.decode("iso2022_jp"))
        self.put(x, y, [[fore if (i, j) in dots else back for i in range(KANJI_SIZE)]
                        for j in range(KANJI_SIZE)], mode)

    def roll(self, up, left=0, fill=0):
        index, real = list(self.index[self.active]), list(self.real[self.active])
        for y in range(HEIGHT):
            for x in range(WIDTH):
                from_x, from_y = x + left, y + up
                inside = 0 <= from_x < WIDTH and 0 <= from_y < HEIGHT
                source = from_y * WIDTH + from_x
                self.index[self.active][y * WIDTH + x] = index[source] if inside else fill
                self.real[self.active][y * WIDTH + x] = (
                    real[source] if inside else self.palette[fill])

    def cls(self, what=1):
        if what & 2:
            self.last = (0, 0)
            self.index[self.active] = [self.back] * (WIDTH * HEIGHT)
            self.real[self.active] = [self.palette[self.back]] * (WIDTH * HEIGHT)
        if what & 1:
            self.cells = {}
            self.cursor = (0, 0)

    # Text

    def width(self, cols, rows):
        self.cols, self.rows = cols, rows
        self.cells = {}
        self.cursor = (0, 0)

    def locate(self, x, y):
        self.cursor = (x, y)

    def write(self, text):
        """Writes within one row; the cursor stays behind the text."""
        x, y = self.cursor
        for character in text:
            self.cells[x, y] = character
            wide = self.glyphs.is_wide(character)
            for cell in range(x, x + 1 + wide):
                self.attributes[cell, y] = self.text_colour
            x += 1 + wide
        self.cursor = (x, y)

    def print(self, text):
        self.write(text)
        self.cursor = (0, self.cursor[1] + 1)

    def colour_at(self, x1, y1, x2, y2, colour=7):
        for y in range(y1, y2 + 1):
            for x in range(x1, x2 + 1):
                self.attributes[x, y] = colour & 7

    # The picture

    def composition(self):
        """All pixels of the screen as the user sees them."""
        if self.visible and self.display != NO_PAGE:
            plane = self.real[self.display]
            pixels = []
            for y in range(HEIGHT):
                row = y // self.y_scale
                pixels += plane[row * WIDTH:(row + 1) * WIDTH]
        else:
            pixels = [BLACK] * (WIDTH * HEIGHT)
        for (x, y), character in self.cells.items():
            self.draw_cell(pixels, x, y, character)
        return pixels

    def draw_cell(self, pixels, x, y, character):
        height, stretch = HEIGHT // self.rows, 80 // self.cols
        top = height * y + whole((height - GLYPH_HEIGHT) / 2)
        colour = DIGITAL[self.attributes[x, y]]
        for i, j in self.glyphs.dots(character):
            for k in range(stretch):
                device_x = x * 8 * stretch + i * stretch + k
                if 0 <= device_x < WIDTH and 0 <= top + j < HEIGHT:
                    pixels[(top + j) * WIDTH + device_x] = colour
