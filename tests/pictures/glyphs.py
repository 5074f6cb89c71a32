"""Bitmaps of characters, read from the default run font's files by FreeType through ctypes."""

import ctypes
import ctypes.util
import unicodedata

FONTS = ("/usr/share/fonts/opentype/unifont/unifont_jp.otf",
         "/usr/share/fonts/opentype/ipafont-gothic/ipag.ttf")
EM = 16
ASCENT = 14
LOAD_RENDER, LOAD_TARGET_MONO = 4, 2 << 16


class Generic(ctypes.Structure):
    _fields_ = [("data", ctypes.c_void_p), ("finalizer", ctypes.c_void_p)]


class Bitmap(ctypes.Structure):
    _fields_ = [("rows", ctypes.c_uint), ("width", ctypes.c_uint), ("pitch", ctypes.c_int),
                ("buffer", ctypes.POINTER(ctypes.c_ubyte))]


class Slot(ctypes.Structure):
    """The head of FT_GlyphSlotRec."""

    _fields_ = [("library", ctypes.c_void_p), ("face", ctypes.c_void_p), ("next", ctypes.c_void_p),
                ("glyph_index", ctypes.c_uint), ("generic", Generic),
                ("metrics", ctypes.c_long * 8), ("linear", ctypes.c_long * 2),
                ("advance", ctypes.c_long * 2), ("format", ctypes.c_int), ("bitmap", Bitmap),
                ("bitmap_extra", ctypes.c_void_p * 2), ("left", ctypes.c_int),
                ("top", ctypes.c_int)]


class Face(ctypes.Structure):
    """The head of FT_FaceRec."""

    _fields_ = [("counts", ctypes.c_long * 5), ("family", ctypes.c_char_p),
                ("style", ctypes.c_char_p), ("num_sizes", ctypes.c_int),
                ("sizes", ctypes.c_void_p), ("num_charmaps", ctypes.c_int),
                ("charmaps", ctypes.c_void_p), ("generic", Generic), ("bbox", ctypes.c_long * 4),
                ("units", ctypes.c_ushort), ("metrics", ctypes.c_short * 7),
                ("glyph", ctypes.POINTER(Slot))]


class Glyphs:
    """A set of dots (x, y) for each character, from the cell's upper left corner."""

    def __init__(self):
        self.library = ctypes.CDLL(ctypes.util.find_library("freetype") or "libfreetype.so.6")
        handle = ctypes.c_void_p()
        assert self.library.FT_Init_FreeType(ctypes.byref(handle)) == 0
        self.faces = []
        for path in FONTS:
            face = ctypes.POINTER(Face)()
            assert self.library.FT_New_Face(handle, path.encode(), 0, ctypes.byref(face)) == 0
            assert self.library.FT_Set_Pixel_Sizes(face, EM, EM) == 0
            self.faces.append(face)
        self.known = {}

    @staticmethod
    def is_wide(character):
        """Ambiguous widths are kept out of the pictures."""
        width = unicodedata.east_asian_width(character)
        assert width != "A"
        return width in "WF"

    def dots(self, character):
        if character not in self.known:
            self.known[character] = self.render(character)
        return self.known[character]

    def render(self, character):
        cell = EM if self.is_wide(character) else EM // 2
        for face in self.faces:
            error = self.library.FT_Load_Char(face, ctypes.c_ulong(ord(character)),
                                              LOAD_RENDER | LOAD_TARGET_MONO)
            slot = face.contents.glyph.contents
            if error == 0 and slot.advance[0] == cell * 64:
                return self.bits(slot)
        raise LookupError(character)

    @staticmethod
    def bits(slot):
        bitmap, dots = slot.bitmap, set()
        for y in range(bitmap.rows):
            for x in range(bitmap.width):
                if bitmap.buffer[y * bitmap.pitch + x // 8] & 0x80 >> x % 8:
                    dots.add((x + slot.left, y + ASCENT - slot.top))
        return dots
