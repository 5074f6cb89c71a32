"""Points, lines, boxes, screen modes. Each function is the picture of the program of its name."""


def screen0_lines(m):
    m.screen(0)
    for i in range(7):
        m.line(i * 90, 0, 639 - i * 60, 199, i + 1)
    m.box(100, 50, 300, 90, 5)
    m.pset(5, 100, 6)
    m.pset(6, 199, 4)


def screen1_boxes(m):
    m.screen(1)
    for i in range(8):
        m.box_fill(i * 80, i * 10, i * 80 + 70, 199 - i * 10, i, 7 - i)


def screen2_fan(m):
    m.screen(2)
    for x in range(0, 640, 29):
        m.line(320, 200, x, 0, x % 7 + 1)
        m.line(x, 399, 320, 200, x % 6 + 2)
    for y in range(0, 400, 23):
        m.line(0, y, 320, 200, y % 7 + 1)
        m.line(320, 200, 639, y, y % 5 + 1)


def screen3_slopes(m):
    m.screen(3)
    for i in range(13):
        for j in range(13):
            x, y = 20 + i * 45, 20 + j * 28
            m.line(x, y, x + i * 2, y + j, 7)
            m.line(x + i, y + 20, x, y + 20 - j, 2)


def line_both_ways(m):
    m.screen(3)
    m.line(0, 390, 639, 399, 7)


def line_far(m):
    m.screen(3)
    m.line(-100000, -50000, 100000, 50000, 1)
    m.line(-30000, 400, 30000, -20, 2)
    m.line(320, -1000000, 330, 1000000, 3)
    m.line(-2000000000, 100, 2000000000, 101, 6)
    m.plot(639, 399, 7)


def line_step(m):
    m.screen(3)
    m.pset(100, 100, 7)
    m.line(110, 110, 200, 120, 1)
    m.line(200, 120, 250, 60, 2)
    m.line(250, 60, 300, 40, 3)
    m.line(305, 40, 305, 140, 4)
    m.box(20, 300, 120, 350, 5)
    m.box_fill(140, 270, 200, 310, 6)
    m.plot(200, 310, 7)


def line_fraction(m):
    m.screen(3)
    m.line(11, 10, 101, 51, 4)
    m.line(0, 200, 0, 210, 5)
    m.pset(301, 301, 7)
    m.pset(310, 300, 6)
    m.box(21, 101, 41, 62, 3)


def boxes(m):
    m.screen(3)
    m.box(20, 20, 100, 80, 1)
    m.box(120, 20, 200, 80, 2)
    m.box_fill(220, 20, 300, 80, 3)
    m.box_fill(320, 20, 400, 80, 4)
    for y, of in ((120, m.box), (180, m.box_fill)):
        of(20, y, 100, y, 5)
        of(120, y, 120, y + 40, 6)
        of(140, y, 140, y, 7)
    m.box_fill(200, 120, 300, 220, 7, 1)
    m.box(320, 120, 321, 121, 2)
    m.line(340, 120, 340, 220, 3)
    m.box_fill(400, 120, 500, 220, 4)
    m.box_fill(520, 120, 600, 220, 6)


def boxes_clipped(m):
    m.screen(3)
    m.box(-50, -50, 60, 40, 2)
    m.box_fill(600, -10, 700, 50, 3)
    m.box_fill(0, 381, 639, 399, 5)
    m.box_fill(0, 380, 639, 380, 4)
    m.box(0, 100, 639, 300, 1)


def whole_screen_box(m):
    m.screen(3)
    m.box_fill(0, 0, 639, 399, 4)
    m.box(0, 0, 639, 399, 7)
    m.box(1, 1, 638, 398, 0)


def pset_preset(m):
    m.screen(3)
    m.back, m.fore = 1, 6
    m.cls(3)
    for i in range(100):
        m.pset(20 + i, 20, 1 if i % 2 == 0 else 6)
        m.pset(20 + i, 40, i % 8)
        if i % 2 == 0:
            m.pset(20 + i, 60, 2)
    m.pset(300, 100)
    m.pset(310, 110)
    m.pset(320, 120, 1)
    m.pset(315, 125, 3)
    for x in (0, 639):
        for y in (0, 399):
            m.pset(x, y, 2)
    m.pset(401, 201)
    m.pset(421, 221, 5)


def colours_beyond(m):
    m.screen(3)
    m.box_fill(110, 30, 200, 40, 2)
    m.box(210, 30, 300, 40, 15)
    m.pset(310, 30, 7)
    m.circle(400, 60, 30, 5)
    m.box_fill(500, 20, 600, 100, 15)


def mode_change(m):
    m.screen(3)
    m.circle(320, 200, 190, 5)
    m.line(0, 0, 639, 399, 2)
    m.line(0, 190, 639, 190, 4)
    m.screen(1)
    m.line(0, 10, 100, 10, 7)


def lower_half(m):
    m.screen(0)
    m.box(100, 150, 500, 350, 3)
    m.circle(300, 200, 100, 6)
    m.screen(2)


def line_nowhere(m):
    """Coordinates that no 32-bit integer holds are the lowest one."""
    far = -2 ** 31
    m.screen(3)
    m.line(far, 100, 639, 100, 1)
    m.line(320, far, 320, 50, 2)
    m.line(far, far, 639, 399, 3)
    m.line(0, 0, far, 399, 4)
    m.line(far, 30, 600, far, 5)
    m.line(far, far, far, far, 5)
    m.box(600, far, 20, 380, 6)
    m.box_fill(far, 390, 630, 395, 7)
    m.line(630, 395, far, 200, 2)
    m.line(far, 200, 300, 220, 5)
    m.pset(far, far, 7)
    m.line(far, far, 100, 399, 4)
