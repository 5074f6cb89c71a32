"""GET@, PUT@ and ROLL. Each function is the picture of the program of its name."""

from machine import AND, OR, PRESET, PSET, XOR


def put_modes(m):
    m.screen(3)
    for i in range(16):
        m.box_fill(i * 4, 0, i * 4 + 3, 31, i)
    picture = m.get(0, 0, 63, 31)
    for i in range(16):
        m.box_fill(0, 100 + i * 4, 639, 103 + i * 4, 15 - i)
    for i, mode in enumerate((PSET, PRESET, OR, AND, XOR, XOR)):
        m.put(20 + i * 100, 116, picture, mode)


def put_xor_twice(m):
    m.screen(0)
    m.circle(100, 60, 50, 6, filled=True, fill=2)
    m.box(200, 20, 600, 180, 5)
    m.line(200, 20, 600, 180, 4)


def get_put_clipped(m):
    m.screen(3)
    m.box(0, 0, 639, 399, 2)
    m.box_fill(0, 0, 80, 60, 6, 4)
    m.circle(30, 30, 20, 7)
    a, b, c = m.get(-20, -20, 60, 60), m.get(600, 360, 680, 430), m.get(700, 500, 720, 520)
    m.put(200, 100, a, PSET)
    m.put(400, 100, b, PRESET)
    m.put(300, 300, c, PRESET)
    for x, y in ((-40, 200), (610, 200), (100, 370), (300, -50)):
        m.put(x, y, a, PSET)


def get_step(m):
    m.screen(3)
    m.box_fill(50, 50, 150, 90, 3, 1)
    m.line(50, 50, 150, 90, 6)
    picture = m.get(50, 50, 150, 90)
    m.put(200, 50, picture, PSET)
    m.line(200, 50, 220, 20, 7)
    m.put(300, 200, m.get(100, 40, 150, 90), PSET)


def get_slots(m):
    m.screen(3)
    for i in range(1, 6):
        m.box_fill(i * 20, 10, i * 20 + 10, 20, i)
    m.circle(200, 15, 8, 6)
    ring = m.get(190, 5, 210, 25)
    for i in range(1, 6):
        m.box_fill(300 - i * 20, 100, 310 - i * 20, 110, i)
    m.put(400, 100, ring, PSET)
    m.box_fill(450, 100, 460, 110, 1)
    m.box_fill(500, 100, 510, 110, 2)
    m.put(300, 200, m.get(20, 10, 60, 20), PSET)


def put_planar(m):
    m.screen(3)
    rows = [[1] * 12, [2] * 12, [4] * 12]
    planes = ("000011111111", "001100111100", "010101010101")
    rows.append([int(a) + 2 * int(b) + 4 * int(c) for a, b, c in zip(*planes)])
    m.put(20, 20, rows, PSET)
    m.put(40, 20, rows, PRESET)
    m.put(632, 20, rows, PSET)
    m.put(60, 398, rows, PSET)
    m.put(80, 20, [[5, 6, 5]], PSET)


def put_planar_16(m):
    m.screen(3)
    for i in range(21):
        m.put(20 + i, 20 + i * 3, [[0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15]], PSET)


def put_planar_2d(m):
    m.screen(3)
    planes = zip("11110000", "11001100", "10101010")
    first = [[int(a) + 2 * int(b) + 4 * int(c) for a, b, c in planes], [1] * 8]
    m.put(50, 50, first, PSET)
    m.put(70, 50, [[1 + 2 + 4, 2, 1, 4]], PSET)


def put_kanji(m):
    m.screen(3)
    m.box_fill(0, 100, 639, 131, 5)
    m.put_kanji(20, 20, 0x3441, PSET, 7, 0)
    m.put_kanji(40, 20, 0x3B7A, PSET, 2, 1)
    m.put_kanji(60, 20, 0x2422)
    m.put_kanji(20, 110, 0x3441, PSET)
    m.put_kanji(60, 110, 0x3441, PRESET, 4, 3)
    m.put_kanji(100, 110, 0x3441, OR, 2, 8)
    m.put_kanji(140, 110, 0x3441, AND, 6, 1)
    m.put_kanji(180, 110, 0x3441, XOR, 3, 2)
    m.put_kanji(220, 110, 0x3441, XOR, 15)
    m.put_kanji(-8, 110, 0x3021, PSET, 7, 2)
    m.put_kanji(632, 110, 0x3021, PSET, 7, 2)
    m.put_kanji(300, -8, 0x3021, PSET, 7, 2)
    m.put_kanji(300, 392, 0x3021, PSET, 7, 2)
    m.line(300, 392, 330, 342, 6)
    m.put_kanji(400, 300, 0x467C, PSET, 3, 4)
    m.text_colour = 7


def kanji_200(m):
    m.screen(0)
    for i in range(10):
        m.put_kanji(100 + i * 20, 50 + i * 5, 0x2422 + i * 2, PSET, i % 7 + 1, 0)


def roll_directions(m):
    m.screen(3)
    m.box(0, 0, 639, 399, 2)
    m.box_fill(100, 100, 300, 300, 6, 1)
    m.circle(400, 200, 150, 5)
    m.roll(20)
    m.roll(-5)
    m.roll(0, 30)
    m.roll(0, -7)
    m.back = 4
    m.roll(10, 10, 4)
    m.roll(-3, -3)
    m.roll(-40, 20, 4)


def roll_away(m):
    m.screen(3)
    m.box_fill(0, 0, 639, 399, 2)
    m.box_fill(100, 100, 200, 200, 5)
    m.roll(100)
    m.roll(0, -300)


def roll_far(m):
    m.screen(3)
    m.box_fill(0, 0, 639, 399, 5)
    m.box_fill(70, 70, 90, 90, 6)


def roll_200(m):
    m.screen(3)
    m.circle(320, 250, 100, 6, filled=True, fill=2)
    m.screen(0)
    m.roll(120, -50)


def put_kanji_unknown(m):
    m.screen(3)
    m.box_fill(0, 100, 639, 131, 5)

    def blank(x, y, mode=XOR, back=0):
        m.put(x, y, [[back] * 16 for _ in range(16)], mode)

    blank(20, 20, PSET, 2)
    blank(40, 20, PSET, 3)
    blank(60, 20, PSET, 4)
    blank(80, 20, PSET, 6)
    blank(100, 20, PSET, 1)
    blank(20, 110, PSET, 1)
    blank(60, 110, PRESET, 3)
    blank(100, 110, OR, 8)
    blank(140, 110, AND, 1)
    blank(180, 110, XOR, 2)
    blank(220, 110)
    blank(-8, 200, PSET, 6)
