"""Text in the fonts of the simulated screen, drawn onto pictures."""

import pathlib

from .asciifont import read_ascii_font
from .fontx2 import FontX2

FONTS = pathlib.Path(__file__).resolve().parent.parent.parent / "resources" / "fonts"

ASCII_FONTS = {
    "8x10": read_ascii_font(FONTS / "ascii8x10.txt", 8, 10),
    "5x10": read_ascii_font(FONTS / "ascii5x10.txt", 5, 10),
    "6x7": read_ascii_font(FONTS / "ascii6x7.txt", 6, 7),
}
FULL_WIDTH = FontX2((FONTS / "MPLZN10X.FNT").read_bytes())
HALF_WIDTH = FontX2((FONTS / "MPLHN10x.FNT").read_bytes())


def draw_glyph(picture, rows, x, y, colour, scale=1):
    for dy, row in enumerate(rows):
        for dx, pixel in enumerate(row):
            if pixel == "#":
                picture.fill(x + dx * scale, y + dy * scale, scale, scale, colour)


def draw_ascii(picture, font, text, x, y, colour, scale=1):
    for character in text:
        rows = ASCII_FONTS[font][ord(character) - 32]
        draw_glyph(picture, rows, x, y, colour, scale)
        x += len(rows[0]) * scale


def draw_japanese(picture, text, x, y, colour, scale=1):
    for character in text:
        encoded = character.encode("cp932")
        font = FULL_WIDTH if len(encoded) == 2 else HALF_WIDTH
        draw_glyph(picture, font.glyph(int.from_bytes(encoded, "big")), x, y, colour, scale)
        x += font.width * scale


def japanese_width(text):
    return sum(5 * len(character.encode("cp932")) for character in text)
