#!/usr/bin/env python3
"""Prints every character of the simulated screen's fonts onto sheets, to be looked at after a change."""

import argparse
import pathlib

from assets.lettering import ASCII_FONTS, FULL_WIDTH, HALF_WIDTH, draw_ascii, draw_glyph, draw_japanese
from assets.picture import Picture, write_png
from make_fonts import shift_jis_code

PAPER, INK, FAINT = (255, 255, 255), (0, 0, 0), (176, 176, 192)
SHEET_SCALE = 2
ASCII_SCALE = 4


def full_width_rows():
    """The rows of JIS X 0208 and its neighbour the NEC row that hold glyphs: (row number, 94 glyphs or None)."""
    for row in range(1, 95):
        codes = [shift_jis_code((row + 0x20) << 8 | cell + 0x20) for cell in range(1, 95)]
        glyphs = [FULL_WIDTH.glyph(code) for code in codes]
        if any(glyphs):
            yield row, glyphs


def japanese_sheet():
    rows = list(full_width_rows())
    pitch, top, left = 12, 20, 24
    sheet = Picture(left + 94 * pitch + 4, top + (len(rows) + 5) * pitch, PAPER)
    for cell in range(1, 95):
        draw_japanese(sheet, f"{cell:02d}", left + (cell - 1) * pitch, 6, FAINT)
    y = top
    for row, glyphs in rows:
        draw_japanese(sheet, f"{row:02d}", 6, y, FAINT)
        for cell, glyph in enumerate(glyphs):
            if glyph:
                draw_glyph(sheet, glyph, left + cell * pitch, y, INK)
        y += pitch
    for first in range(0x20, 0x100, 0x40):
        y += pitch
        draw_japanese(sheet, f"{first:02X}", 6, y, FAINT)
        for code in range(first, min(first + 0x40, 0x100)):
            draw_glyph(sheet, HALF_WIDTH.glyph(code), left + (code - first) * 8, y, INK)
    return sheet.enlarged(SHEET_SCALE)


def ascii_sheet():
    """Each font as a table and as running text in touching cells, the way the screen shows it."""
    text = ("Sphinx of black quartz, judge my vow!", "The 5 boxing wizards jump quickly @ 10:42?",
            "0O 1lI| 2Z 5S 6b 8B 9g {[()]} <=> ;:,. '`\"", "~!@#$%^&*()_+-=\\/ VOLUME: 20 CH01'GrandPno")
    height = 4 + sum(7 * (len(glyphs[0]) + 3) + 6 for glyphs in ASCII_FONTS.values())
    sheet = Picture(max(map(len, text)) * 8 + 8, height, PAPER)
    y = 4
    for name, glyphs in ASCII_FONTS.items():
        width, height = len(glyphs[0][0]), len(glyphs[0])
        for number, rows in enumerate(glyphs):
            draw_glyph(sheet, rows, 4 + number % 32 * (width + 2), y + number // 32 * (height + 3), INK)
        y += 3 * (height + 3)
        for sentence in text:
            draw_ascii(sheet, name, sentence, 4, y, INK)
            y += height + 3
        y += 6
    return sheet.enlarged(ASCII_SCALE)


def main():
    root = pathlib.Path(__file__).resolve().parent.parent
    arguments = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    arguments.add_argument("--output", type=pathlib.Path, default=root / "docs" / "sheets")
    options = arguments.parse_args()
    write_png(options.output / "font-japanese.png", japanese_sheet())
    write_png(options.output / "font-ascii.png", ascii_sheet())


if __name__ == "__main__":
    main()
