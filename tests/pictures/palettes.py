"""Palettes, pages and CLS. Each function is the picture of the program of its name."""

from machine import NO_PAGE


def palette_digital(m):
    m.screen(3)
    for i in range(16):
        m.box_fill(i * 40, 100, i * 40 + 39, 299, i)
    for number, colour in ((1, 6), (6, 1), (0, 4), (7, 0)):
        m.change_palette(number, colour)


def palette_analog_8(m):
    m.screen(3)
    m.colour_mode(1)
    for i in range(8):
        m.box_fill(i * 80, 100, i * 80 + 79, 299, i)
        m.change_palette(i, i * 0x111 + 0x80)
    m.change_palette(7, 0xFFF)
    m.change_palette(0, 0x108)


def palette_analog_16(m):
    m.screen(2)
    m.colour_mode(2)
    for i in range(16):
        m.box_fill(i * 40, 100, i * 40 + 39, 299, i)
    for i in range(8, 16):
        m.change_palette(i, (i - 8) * 0x210 + 15)


def palette_default_16(m):
    m.screen(3)
    for i in range(16):
        m.circle(20 + i * 40, 200, 18, i, filled=True)


def palette_mode_later(m):
    m.screen(3)
    m.box_fill(0, 100, 300, 300, 1)
    m.change_palette(1, 2)
    m.change_palette(4, 7)
    m.colour_mode(2)
    m.box_fill(310, 100, 600, 300, 1)
    m.box_fill(400, 150, 500, 250, 4)


def palette_restored(m):
    m.screen(3)
    m.box_fill(0, 100, 300, 300, 1, 2)
    m.box_fill(310, 100, 600, 300, 1, 2)


def palette_kept_picture(m):
    m.screen(3)
    m.box_fill(0, 0, 639, 399, 1)
    m.change_palette(1, 2)
    m.colour_mode(0)


def palette_upper_half(m):
    m.screen(3)
    m.box_fill(0, 0, 639, 399, 1)
    m.screen(0)
    m.change_palette(1, 2)
    m.screen(3)


def palette_later_page(m):
    m.screen(3)
    m.screen(active=1)
    m.box_fill(50, 50, 600, 350, 1)
    m.change_palette(1, 4)
    m.screen(display=1)
    m.change_palette(1, 6)
    m.box(300, 10, 400, 390, 1)


def cls_background(m):
    m.screen(3)
    m.back, m.text_colour = 4, 6
    m.change_palette(4, 3)
    m.cls(3)
    m.circle(300, 200, 100, 2, filled=True)
    m.change_palette(4, 1)
    m.print("text")
    m.box_fill(0, 350, 639, 360, 0)


def cls_parts(m):
    m.screen(3)
    m.print("here")
    m.screen(active=1, display=1)
    m.box_fill(0, 0, 200, 200, 4)
    m.box(30, 20, 330, 120, 6)


def pages_200(m):
    m.screen(0, active=2)
    m.circle(380, 100, 60, 3, filled=True, fill=6)
    m.display = 2


def pages_400(m):
    m.screen(3)
    m.box(20, 30, 600, 380, 3)


def page_hidden(m):
    m.screen(3, display=NO_PAGE)
    m.print("Text")


def switch_off(m):
    m.screen(3, 3)
    m.text_colour = 5
    m.print("Text")


def switch_on(m):
    m.screen(1)
    m.box_fill(50, 50, 300, 150, 2, 6)


def display_returns(m):
    m.screen(3)
    m.pset(639, 399, 7)
    m.box_fill(100, 300, 200, 350, 6)


def pages_back_to_400(m):
    m.screen(3, active=1, display=1)
    m.box_fill(300, 50, 400, 150, 6)
    m.box(0, 300, 639, 399, 1)


def refusal_half_way(m):
    m.screen(3)
    m.box(0, 0, 639, 399, 3)
    m.box_fill(50, 150, 300, 350, 6)
    m.print("@Runtime_Err_Ill_Func_Call@ in 20")


def palette_while_hidden(m):
    m.screen(3, display=NO_PAGE)


def palette_shown_again(m):
    m.screen(3)
    m.box_fill(50, 50, 300, 300, 1, 4)
    m.screen(display=NO_PAGE)
    m.change_palette(1, 6)
    m.change_palette(4, 2)
    m.screen(display=0)
    m.colour_mode(0)
    m.box_fill(320, 50, 600, 300, 4, 1)
