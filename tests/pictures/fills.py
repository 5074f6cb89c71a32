"""Fills. Each function is the picture of the program of its name."""


def paint_shapes(m):
    m.screen(3)
    m.circle(120, 120, 80, 2)
    m.paint(120, 120, 4, 2)
    m.box(240, 40, 400, 200, 5)
    m.box_fill(241, 41, 399, 199, 1)
    m.circle(520, 120, 80, 3)
    m.paint(520, 120, 3)
    m.box(40, 240, 200, 380, 7)
    m.box_fill(41, 241, 199, 379, 2)
    m.circle(320, 310, 60)
    m.paint(320, 310)
    m.box(450, 250, 600, 380, 4)
    m.box_fill(451, 251, 599, 379, 7)


def paint_corners(m):
    m.screen(3)
    m.line(0, 0, 639, 399, 2)
    m.line(0, 399, 639, 0, 2)
    m.paint(320, 10, 1, 2)
    m.paint(10, 200, 3, 2)
    m.paint(600, 200, 4, 2)
    m.paint(320, 390, 5, 2)


def paint_spiral(m):
    m.screen(3)
    x, y, w, h = 20, 20, 600, 360
    m.pset(x, y, 7)
    while h > 20:
        for dx, dy in ((w, 0), (0, h), (20 - w, 0), (0, 20 - h)):
            m.line(x, y, x + dx, y + dy, 7)
            x, y = x + dx, y + dy
        w, h = w - 40, h - 40
    for i in range(12):
        m.circle(60 + i * 48, 30, 4, 7)
    m.paint(25, 35, 2, 7)


def paint_comb(m):
    m.screen(2)
    m.box(10, 30, 630, 390, 7)
    for i in range(1, 31):
        m.line(10 + i * 20, 30, 10 + i * 20, 380, 7)
    for i in range(1, 31, 3):
        m.line(20 + i * 20, 390, 20 + i * 20, 40, 7)
    m.paint(11, 389, 6, 7)
    m.paint(311, 189, 1, 7)


def paint_200(m):
    m.screen(0)
    m.circle(320, 199, 150, 4)
    m.paint(320, 190, 5, 4)
    m.line(100, 0, 100, 399, 2)
    m.paint(0, 0, 3, 2)
    m.screen(3)


def paint_nothing(m):
    m.screen(3)
    m.box_fill(100, 100, 200, 200, 2)
    m.line(150, 150, 250, 150, 6)
    m.line(-1, 10, 49, 10, 3)
    m.line(640, 20, 590, 20, 4)


def paint_fore(m):
    m.screen(3)
    m.fore = 5
    m.box_fill(100, 100, 300, 300)
    m.box_fill(400, 100, 500, 200, 6, 5)
    m.box(400, 100, 500, 200, 6)
