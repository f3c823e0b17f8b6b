#!/usr/bin/env python3
"""Prints every character of the simulated screen's fonts onto sheets, to be looked at after a change."""

import argparse
import pathlib

from assets.asciifont import read_ascii_font
from assets.fontx2 import FontX2
from assets.picture import Picture, write_png
from make_fonts import shift_jis_code

PAPER, INK, FAINT = (255, 255, 255), (0, 0, 0), (176, 176, 192)
SHEET_SCALE = 2
ASCII_SCALE = 4


def draw_glyph(picture, rows, x, y, ink=INK):
    for dy, row in enumerate(rows):
        for dx, pixel in enumerate(row):
            if pixel == "#":
                picture.put(x + dx, y + dy, ink)


def draw_text(picture, half_width, text, x, y, ink=INK):
    for code in text.encode("ascii"):
        draw_glyph(picture, half_width.glyph(code), x, y, ink)
        x += half_width.width


def full_width_rows(font):
    """The rows of JIS X 0208 and its neighbour the NEC row that hold glyphs: (row number, 94 glyphs or None)."""
    for row in range(1, 95):
        codes = [shift_jis_code((row + 0x20) << 8 | cell + 0x20) for cell in range(1, 95)]
        glyphs = [font.glyph(code) for code in codes]
        if any(glyphs):
            yield row, glyphs


def japanese_sheet(full_width, half_width):
    rows = list(full_width_rows(full_width))
    pitch, top, left = 12, 20, 24
    sheet = Picture(left + 94 * pitch + 4, top + (len(rows) + 5) * pitch, PAPER)
    for cell in range(1, 95):
        draw_text(sheet, half_width, f"{cell:02d}", left + (cell - 1) * pitch, 6, FAINT)
    y = top
    for row, glyphs in rows:
        draw_text(sheet, half_width, f"{row:02d}", 6, y, FAINT)
        for cell, glyph in enumerate(glyphs):
            if glyph:
                draw_glyph(sheet, glyph, left + cell * pitch, y)
        y += pitch
    for first in range(0x20, 0x100, 0x40):
        y += pitch
        draw_text(sheet, half_width, f"{first:02X}", 6, y, FAINT)
        for code in range(first, min(first + 0x40, 0x100)):
            draw_glyph(sheet, half_width.glyph(code), left + (code - first) * 8, y)
    return sheet.enlarged(SHEET_SCALE)


def ascii_sheet(fonts):
    """Each font as a table and as running text in touching cells, the way the screen shows it."""
    text = ("Sphinx of black quartz, judge my vow!", "The 5 boxing wizards jump quickly @ 10:42?",
            "0O 1lI| 2Z 5S 6b 8B 9g {[()]} <=> ;:,. '`\"", "~!@#$%^&*()_+-=\\/ VOLUME: 20 CH01'GrandPno")
    sheet = Picture(max(map(len, text)) * 8 + 8, 4 + sum(7 * (height + 3) + 6 for _, _, height in fonts), PAPER)
    y = 4
    for glyphs, width, height in fonts:
        for number, rows in enumerate(glyphs):
            draw_glyph(sheet, rows, 4 + number % 32 * (width + 2), y + number // 32 * (height + 3))
        y += 3 * (height + 3)
        for line in text:
            for number, character in enumerate(line):
                draw_glyph(sheet, glyphs[ord(character) - 32], 4 + number * width, y)
            y += height + 3
        y += 6
    return sheet.enlarged(ASCII_SCALE)


def main():
    root = pathlib.Path(__file__).resolve().parent.parent
    arguments = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    arguments.add_argument("--output", type=pathlib.Path, default=root / "docs" / "sheets")
    options = arguments.parse_args()
    fonts = root / "resources" / "fonts"
    full_width, half_width = (FontX2((fonts / name).read_bytes()) for name in ("MPLZN10X.FNT", "MPLHN10x.FNT"))
    write_png(options.output / "font-japanese.png", japanese_sheet(full_width, half_width))
    sizes = (("ascii8x10.txt", 8, 10), ("ascii5x10.txt", 5, 10), ("ascii6x7.txt", 6, 7))
    write_png(options.output / "font-ascii.png",
              ascii_sheet([(read_ascii_font(fonts / name, width, height), width, height)
                           for name, width, height in sizes]))


if __name__ == "__main__":
    main()
