"""Pictures of the samples that draw. Each function follows the sample of its name."""

import math

from machine import AND, OR, PSET, single


def sine(x):
    return single(math.sin(x))


def cosine(x):
    return single(math.cos(x))


def plot(m):
    x0, y0, sx, sy = 320, 200, 40, 140
    m.screen(3)
    for i in range(-7, 8):
        for y in range(20, 381, 6):
            m.pset(x0 + i * sx, y, 1)
    for i in range(-5, 6):
        for x in range(20, 621, 6):
            m.pset(x, y0 - i * sy // 5, 1)
    for ends in ((20, y0, 620, y0), (612, y0 - 4, 620, y0), (620, y0, 612, y0 + 4),
                 (x0, 20, x0, 380), (x0 - 4, 28, x0, 20), (x0, 20, x0 + 4, 28)):
        m.line(*ends, 7)
    for i in range(-7, 8):
        m.line(x0 + i * sx, y0 - 3, x0 + i * sx, y0 + 3, 7)

    def first(x):
        return y0 - sy * math.cos(x * 2) * math.exp(-x * x / 8)

    def second(x):
        return y0 - sy * math.sin(x) * 0.6

    for i in range(-280, 281, 4):
        m.line(x0 + i, y0, x0 + i, first(i / sx), 4)
    for colour, curve in ((6, first), (2, second)):
        for i in range(-280, 280):
            m.line(x0 + i, curve(i / sx), x0 + i + 1, curve((i + 1) / sx), colour)
    m.box_fill(430, 26, 634, 70, 0)
    m.box(430, 26, 634, 70, 5)
    m.box_fill(440, 40, 464, 41, 6)
    m.box_fill(440, 56, 464, 57, 2)
    for x, y, colour, text in ((60, 2, 6, "cos(2x) exp(-xx/8)"), (60, 3, 2, "0.6 sin(x)"),
                               (41, 1, 7, "y"), (76, 13, 7, "x")):
        m.text_colour = colour
        m.locate(x, y)
        m.write(text)
    m.locate(0, 23)


def torus_point(i, j):
    """Where a point of the ring stands on the screen, and its depth."""
    u, v = i * 2 * math.pi / 32, j * 2 * math.pi / 16
    r = 2 + 0.85 * math.cos(v)
    x, y, z = r * math.cos(u), r * math.sin(u), 0.85 * math.sin(v)
    y, z = y * math.cos(0.9) - z * math.sin(0.9), y * math.sin(0.9) + z * math.cos(0.9)
    x, y = x * math.cos(0.35) - y * math.sin(0.35), x * math.sin(0.35) + y * math.cos(0.35)
    d = 560 / (z + 7)
    return 320 + x * d, 195 - y * d * 0.8, z


def torus(m):
    m.screen(3)
    for low, high, colour in ((0.8, 9, 1), (-0.8, 0.8, 5), (-9, -0.8, 7)):
        for i in range(32):
            for j in range(16):
                x, y, z = torus_point(i, j)
                if low <= z < high:
                    m.line(x, y, *torus_point(i + 1, j)[:2], colour)
                    m.line(x, y, *torus_point(i, j + 1)[:2], colour)
    m.text_colour = 6
    m.locate(2, 1)
    m.write("A wire frame of 512 points")
    m.text_colour = 7
    m.locate(0, 23)


LEAD, GLASS = 14, 15
GLASS_COLOURS = (0x333, 0x444, 0x2C3, 0x4E2, 0x3E1, 0xB20, 0xC81, 0x32B, 0x75F, 0xBE0, 0xEF2, 0x6A9,
                 0x666, 0x000, 0xFFF)
PANES = ((320, 112, 11), (364, 112, 5), (342, 74, 10), (298, 74, 5), (276, 112, 10), (298, 150, 5),
         (342, 150, 10), (230, 90, 8), (410, 90, 8), (190, 160, 9), (450, 160, 9), (300, 200, 7),
         (340, 200, 7), (172, 270, 6), (468, 270, 6), (243, 236, 4), (397, 236, 4), (204, 300, 10),
         (281, 300, 5), (358, 300, 5), (435, 300, 10), (170, 368, 8), (243, 360, 9), (320, 360, 12),
         (397, 360, 9), (470, 368, 8))


def disc(m, x, y, r):
    m.circle(x, y, r, LEAD, filled=True)
    m.circle(x, y, r - 4, GLASS, filled=True)


def window_lead(m, r):
    lines = [(166, 189, 474, 189), (166, 280, 474, 280), (186, 111, 454, 111)]
    for x1, y1, x2, y2 in lines:
        m.line(x1, y1 + r, x2, y2 + r, LEAD)
    m.line(319 + r, 36, 319 + r, 280, LEAD)
    m.line(166, 190 + r, 319, 280 + r, LEAD)
    m.line(474, 190 + r, 321, 280 + r, LEAD)
    for x in range(166, 398, 77):
        m.line(x + r, 281, x + 38 + r, 374, LEAD)
        m.line(x + 38 + r, 374, x + 76 + r, 281, LEAD)


def window(m):
    m.screen(3)
    m.colour_mode(2)
    for i, code in enumerate(GLASS_COLOURS):
        m.change_palette(i + 1, code)
    m.box_fill(0, 0, 639, 399, 1)
    for y in range(0, 400, 20):
        m.line(0, y, 639, y, 2)
        for x in range(y % 40 - 20, 640, 40):
            m.line(x, y, x, y + 19, 2)
    for colour, b in ((13, 0), (LEAD, 10), (GLASS, 16)):
        m.circle(320, 190, 170 - b, colour, filled=True)
        m.box_fill(150 + b, 190, 490 - b, 390 - b, colour)
    for r in range(3):
        window_lead(m, r)
    disc(m, 320, 112, 66)
    for r in range(3):
        m.line(262, 78 + r, 378, 144 + r, LEAD)
        m.line(262, 144 + r, 378, 78 + r, LEAD)
        m.line(319 + r, 50, 319 + r, 174, LEAD)
    for x, y, r in ((320, 112, 30), (243, 236, 34), (397, 236, 34)):
        disc(m, x, y, r)
    for x, y, colour in PANES:
        m.paint(x, y, colour, LEAD)
    m.locate(0, 23)


WATER_COLOURS = (0x214, 0x316, 0x428, 0x52A, 0x73C, 0x95E, 0xB7F, 0x333, 0xBC7, 0x832, 0x6F0, 0xEF3,
                 0x3F8, 0xF6A, 0xFFF)


def fish(m, body, fins):
    m.cls(2)
    for corners in (((16, 20), (2, 5), (2, 35)), ((30, 8), (44, 0), (50, 10))):
        for a, b in zip(corners, corners[1:] + corners[:1]):
            m.line(*a, *b, fins)
    m.paint(6, 20, fins, fins)
    m.paint(43, 4, fins, fins)
    m.circle(42, 20, 28, body, ratio=0.5, filled=True)
    m.circle(36, 20, 10, fins, 4.8, 1.5)
    m.circle(28, 20, 10, fins, 4.8, 1.5)
    m.circle(58, 16, 4, 15, filled=True)
    m.circle(59, 16, 1.5, 8, filled=True)
    picture = m.get(0, 0, 71, 39)
    return picture, [[0 if dot else 15 for dot in row] for row in picture]


def _water(m):
    m.cls(2)
    for i in range(7):
        m.box_fill(0, i * 50, 639, i * 50 + 49, 7 - i)
    m.box_fill(0, 350, 639, 399, 9)
    m.circle(500, 365, 60, 8, ratio=0.6, filled=True)
    m.circle(120, 372, 40, 8, ratio=0.5, filled=True)
    for i in range(13):
        x = 30 + i * 49
        for j in range(4):
            m.line(x + j, 370, x + j * 7 - 12, 330, 10)
            m.line(x + j * 7 - 12, 330, x + j * 12 - 18, 290 - i * 13 % 40, 10)
        m.circle(x + 6, 40 + i * 97 % 250, 5, 15)


def aquarium(m):
    m.screen(3)
    m.colour_mode(2)
    for i, code in enumerate(WATER_COLOURS):
        m.change_palette(i + 1, code)
    swimmers = ((40, 60, 6, 11, 12), (260, 150, 4, 12, 13), (500, 260, 7, 13, 14))
    shapes = [fish(m, body, fins) for _, _, _, body, fins in swimmers]
    _water(m)
    for (x, y, speed, _, _), (picture, mask) in zip(swimmers, shapes):
        for _ in range(1980):
            x = x + speed if x + speed <= 640 else -72
        m.put(x, y, mask, AND)
        m.put(x, y, picture, OR)


def tunnel(m):
    m.screen(3)
    m.colour_mode(2)
    r, n = 420.0, 0
    while r > 14:
        t = single(n * single(0.13))
        x = 320 + single(60 * sine(t))
        y = 200 + single(30 * sine(single(t * single(1.7))))
        m.circle(x, y, r, n % 14 + 1, ratio=0.8, filled=True)
        r, n = single(r * single(0.92)), n + 1
    m.circle(x, y, 9, 15, filled=True)
    m.change_palette(15, 0xFFF)
    for i in range(1, 15):
        p = (i + 60) % 14
        light = 14 - p if p > 7 else p
        m.change_palette(i, int(light * 1.4) * 256 + light * 16 + light + 8)
    m.locate(2, 23)
    m.write("Rings: %d" % n)
    m.locate(2, 21)


class Bricks:
    """The game. Its paddle stands at `paddle` until the first ball has flown TURNS_BEFORE turns,
    then at `later`."""

    TURNS_BEFORE = 40

    def __init__(self, m, paddle, later):
        self.m, self.paddle, self.later = m, paddle, later
        self.wall = {}
        self.score, self.balls, self.turns = 0, 3, 0
        for r in range(6):
            for c in range(10):
                self.wall[c, r] = r + 1
                self.draw_brick(c, r)

    def draw_brick(self, c, r):
        colour = self.wall.get((c, r), 0)
        corners = c * 64 + 2, r * 16 + 52, c * 64 + 61, r * 16 + 63
        self.m.box_fill(*corners, colour)
        if colour:
            self.m.box(*corners, 7)

    def move_paddle(self):
        self.m.box_fill(self.paddle, 380, self.paddle + 80, 386, 0)
        self.turns += 1
        if self.turns == self.TURNS_BEFORE:
            self.paddle = self.later
        self.m.box_fill(self.paddle, 380, self.paddle + 80, 386, 5)

    def hit(self, x, y):
        brick = x // 64, (y - 50) // 16
        if brick not in self.wall:
            return False
        del self.wall[brick]
        self.draw_brick(*brick)
        self.score += (6 - brick[1]) * 10
        return True

    def serve(self):
        """One ball from the paddle to its end."""
        x, y, dx, dy = self.paddle + 40, 360, -4 if self.balls == 2 else 4, -4
        while True:
            self.m.box_fill(x - 3, y - 3, x + 3, y + 3, 0)
            self.move_paddle()
            x, y = x + dx, y + dy
            if x < 8 or x > 631:
                dx = -dx
                x += 2 * dx
            if y < 28:
                dy = -dy
                y += 2 * dy
            if 376 <= y < 384 and dy > 0 and -4 <= x - self.paddle <= 84:
                dy, y = -dy, 374
                dx = int((x - self.paddle - 40) / 8) or 1
            if 50 <= y < 146 and self.hit(x, y):
                dy = -dy
            if y > 396:
                self.balls -= 1
                return
            self.m.box_fill(x - 3, y - 3, x + 3, y + 3, 7)


def bricks(m):
    m.screen(3)
    game = Bricks(m, 280, 412)
    for ends in ((0, 20, 639, 20), (0, 20, 0, 399), (639, 20, 639, 399)):
        m.line(*ends, 7)
    while game.balls > 0:
        game.serve()
    for x, y, colour, text in ((1, 0, 7, "Score %d " % game.score), (66, 0, 7, "Balls 0"),
                               (31, 14, 6, "The game is over.")):
        m.text_colour = colour
        m.locate(x, y)
        m.write(text)
    m.text_colour = 7
    m.locate(0, 23)
