"""Circles, ellipses, arcs and sectors. Each function is the picture of the program of its name."""

from machine import single


def circle_sizes(m):
    m.screen(3)
    for r in range(13):
        m.circle(30 + r * 45, 40, r, r % 7 + 1)
    for r in range(20, 151, 13):
        m.circle(320, 230, r, r % 7 + 1)


def circle_200(m):
    m.screen(0)
    for r in range(1, 13):
        m.circle(r * 48, 30, r * 2, r % 7 + 1)
    m.circle(200, 120, 100, 4)
    m.circle(440, 120, 100, 5, ratio=1)
    m.circle(440, 120, 61, 3, ratio=0.25, filled=True)


def circle_ratio(m):
    m.screen(3)
    m.circle(160, 130, 110, 1, ratio=0.3)
    m.circle(160, 130, 110, 2, ratio=3)
    m.circle(160, 130, 110, 4, ratio=1)
    m.circle(160, 130, 110, 6, ratio=0)
    m.circle(450, 130, 100, 3, ratio=0.6, filled=True)
    m.circle(450, 300, 90, 5, ratio=1.7, filled=True, fill=1)
    for i in range(9):
        m.circle(40 + i * 35, 320, 15, 7, ratio=2 ** (i - 4))


def circle_fraction(m):
    m.screen(3)
    for i in range(10):
        m.circle(30 + single(i * single(60.1)), 50.25, 10 + single(i * single(0.3)), i % 7 + 1)
        m.circle(single(30.7) + i * 60, 120, single(i * single(0.1)), 7)
    for i in range(10):
        m.circle(40 + i * 60, single(200.3) + single(i / 10), 20, i % 6 + 1, ratio=0.4, filled=True)
    m.circle(100.3, 300.6, 0.2, 6)
    m.circle(120.5, 300.5, 0.4, 6)
    m.circle(140.5, 300.4, 0, 6)


def circle_clipped(m):
    m.screen(3)
    m.circle(0, 0, 100, 1)
    m.circle(639, 0, 80, 2, ratio=0.5, filled=True)
    m.circle(0, 399, 90, 3, filled=True, fill=4)
    m.circle(639, 399, 120, 5)
    m.circle(320, -50, 80, 6)
    m.circle(700, 200, 50, 7)
    m.circle(320, 460, 61, 6)
    m.circle(320, 5200, 5000, 4)
    m.circle(-9800, 200, 10000.5, 2)


def circle_beyond(m):
    m.screen(3)
    m.circle(320, 200, 20, 4)


def circle_filled(m):
    m.screen(3)
    m.circle(100, 100, 60, 2, filled=True)
    m.circle(250, 100, 60, 2, filled=True, fill=6)
    m.circle(400, 100, 60, 4, ratio=0.5, filled=True, fill=1)
    m.circle(550, 100, 60, 4, ratio=2, filled=True, fill=1)
    m.circle(100, 250, 60, 5, filled=True)
    m.circle(250, 250, 60, 5, filled=True)
    m.circle(400, 250, 60, 3, filled=True, fill=0)
    for r in range(11):
        m.circle(30 + r * 40, 350, r, 7, filled=True, fill=r % 7)


def circle_step(m):
    m.screen(3)
    m.circle(100, 100, 30, 1)
    m.circle(140, 120, 30, 2)
    m.line(140, 120, 190, 170, 3)
    m.circle(200, 170, 25.5, 4, ratio=0.5, filled=True)
    m.pset(200, 170, 7)
    m.circle(300.7, 200.9, 40, 5)
    m.pset(301, 201, 7)
    m.pset(321, 221, 6)


def arc_quadrants(m):
    m.screen(3)
    p = single(3.1415927)
    for i in range(4):
        m.circle(100, 100, 30 + i * 12, i + 1, i * p / 2, (i + 1) * p / 2)
    for i in range(8):
        m.circle(300, 100, 20 + i * 9, i % 7 + 1, i * p / 4, i * p / 4 + p)
    m.circle(500, 100, 80, 2, p / 3)
    m.circle(500, 100, 70, 4, None, p / 3)
    m.circle(500, 100, 60, 6, p, p)
    m.circle(100, 290, 80, 3, p / 6, p / 3, 0.5)
    m.circle(100, 290, 80, 5, 2 * p / 3, 5 * p / 6, 0.5)
    m.circle(300, 290, 80, 3, 0.1, 3, 1.5)
    m.circle(500, 290, 80, 7, 0.4, 6)


def arc_wrap(m):
    m.screen(3)
    m.circle(100, 100, 60, 2, 5, 1)
    m.circle(260, 100, 60, 3, 3.2, 3)
    m.circle(420, 100, 60, 4, 6, 0.5, 0.7)
    m.circle(100, 280, 60, 11, -5, -1)
    m.circle(260, 280, 60, 6, 2, 1.99, 1.4)
    m.circle(420, 280, 60, 5)


def arc_radii(m):
    m.screen(3)
    m.circle(100, 100, 70, 1, -0.5, 2)
    m.circle(280, 100, 70, 2, 0.5, -2)
    m.circle(460, 100, 70, 4, -0.5, -2)
    m.circle(100, 280, 70, 3, -4, -1)
    m.circle(280, 280, 70, 5, -1, -5, 0.5)
    m.circle(460, 280, 70, 6, -2, -3.6, 1.6)
    m.circle(580, 190, 50, 7, 0, -1.5708)
    m.circle(580, 190, 40, 7, -3.14159, -3.14159)


def arc_filled(m):
    m.screen(3)
    m.circle(100, 100, 70, 2, 0.3, 2, filled=True)
    m.circle(280, 100, 70, 4, 3, 5.5, filled=True, fill=1)
    m.circle(460, 100, 70, 6, 5, 1, filled=True)
    m.circle(100, 280, 70, 3, -1, -4, 0.5, filled=True, fill=2)
    m.circle(280, 280, 70, 5, 2, 3.3, 1.6, filled=True)
    m.circle(460, 280, 70, 7, 0.7, 0.9, filled=True, fill=4)


def arc_200(m):
    m.screen(1)
    m.circle(150, 100, 120, 2, 0.3, -1.2)
    m.circle(150, 100, 120, 4, -2, -3)
    m.circle(150, 100, 100, 6, 3.3, 6)
    m.circle(450, 100, 120, 5, 0.5, 2.5, filled=True)
    m.circle(450, 100, 120, 3, 3.5, 5.5, filled=True, fill=1)


def arc_clipped(m):
    m.screen(3)
    m.circle(0, 200, 150, 2, 5.5, 0.8)
    m.circle(639, 200, 150, 3, -2, -4, filled=True)
    m.circle(320, 420, 200, 4, -0.6, -2.2)
    m.circle(320, -20, 100, 5, 3.3, 6.1, filled=True, fill=7)
    m.circle(-200, 50, 230, 6, 0.2, 6)
