"""Text over graphics. Each function is the picture of the program of its name."""


def text_80_25(m):
    m.screen(3)
    for i in range(8):
        m.box_fill(i * 80, 0, i * 80 + 79, 399, i)
    for i in range(8):
        m.text_colour = i
        m.locate(0, 2 + i * 2)
        m.write("Az0 #@qg " * 8)
    m.text_colour = 7
    m.locate(78, 24)
    m.write("*")
    m.locate(0, 23)


def text_40_25(m):
    m.width(40, 25)
    m.circle(320, 100, 150, 2, filled=True, fill=1)
    for i in range(1, 8):
        m.text_colour = i
        m.locate(i * 4, i * 3)
        m.write("Wide text %d" % i)
    m.locate(38, 0)
    m.write("XY")
    m.locate(0, 23)


def text_80_20(m):
    m.width(80, 20)
    m.screen(3)
    m.box_fill(0, 0, 639, 19, 1)
    m.box_fill(0, 40, 639, 59, 2)
    for i in range(19):
        m.locate(i * 3, i)
        m.text_colour = i % 7 + 1
        m.write("Row %d gjpqy_|" % i)
    m.text_colour = 7
    m.locate(70, 19)
    m.write("last row")
    m.locate(0, 18)


def text_40_20(m):
    m.width(40, 20)
    m.screen(1)
    m.box_fill(0, 30, 639, 130, 4, 3)
    m.text_colour = 6
    m.locate(3, 4)
    m.write("漢字 ｶﾅ かな ABC")
    m.text_colour = 2
    m.locate(30, 9)
    m.write("図形の上")
    m.text_colour = 7
    m.locate(0, 10)


def text_wide(m):
    m.screen(3)
    m.box_fill(0, 0, 639, 399, 1)
    m.locate(75, 3)
    m.write("日本語")
    m.locate(1, 4)
    m.write("日本")
    m.locate(79, 10)
    m.write("漢")
    m.locate(1, 11)
    m.write("x")
    m.text_colour = 4
    for x, c in ((10, "a"), (12, "本"), (14, "語")):
        m.locate(x, 15)
        m.write(c)
    m.locate(0, 16)


def colour_at(m):
    m.screen(3)
    for _ in range(10):
        m.print("Colour of a field of cells")
    m.colour_at(0, 1, 9, 1, 2)
    m.colour_at(10, 2, 20, 5, 4)
    m.colour_at(5, 7, 5, 9, 6)
    m.colour_at(0, 9, 79, 24, 5)
    m.colour_at(12, 7, 14, 7, 9)
    m.locate(12, 3)
    m.write("new")
    m.locate(0, 12)


def colour_stays(m):
    for i in range(1, 8):
        m.text_colour = i
        m.print("Colour %d" % i)
    m.text_colour = 3
    m.print("Last")


def console_scroll(m):
    m.screen(3)
    m.box_fill(0, 160, 639, 239, 1)
    m.print("above")
    m.locate(0, 20)
    m.write("below")
    for i in range(9, 13):
        m.text_colour = i % 7 + 1
        m.locate(0, i + 1)
        m.write("line %d" % i)
    m.text_colour = 7
    m.locate(40, 2)
    m.write("outside")


def width_clears(m):
    m.screen(3)
    m.box(0, 0, 639, 399, 2)
    m.width(40, 20)
    m.print("new")
    m.line(0, 0, 639, 399, 4)


def locate_clamped(m):
    m.screen(3)
    for x, y, c in ((79, 23, "!"), (0, 0, "?"), (30, 0, "x"), (31, 7, "y"), (79, 3, "z")):
        m.locate(x, y)
        m.write(c)
    m.locate(0, 10)


def text_long(m):
    m.screen(3)
    m.box_fill(0, 160, 639, 239, 1)
    for i in range(24):
        if not 10 <= i < 15:
            m.locate(0, i)
            m.write("row %d" % i)
    m.text_colour = 6
    for i in range(2, 6):
        m.locate(0, 8 + i)
        m.write(chr(65 + i) * 40 + chr(97 + i) * 40)
    m.locate(40, 5)


def text_scrolls_graphics_stay(m):
    m.width(40, 20)
    m.circle(320, 100, 180, 4, filled=True, fill=1)
    for i in range(13, 31):
        m.text_colour = i % 7 + 1
        m.locate(i % 8, i - 13)
        m.write("行 %d ｱ" % i)
    m.text_colour = 7
    m.locate(0, 18)
