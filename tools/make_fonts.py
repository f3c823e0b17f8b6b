#!/usr/bin/env python3
"""Makes the two FONTX2 fonts of the simulated screen from the M+ bitmap fonts (Debian package xfonts-mplus).

The M+ cells have 11 rows and the module's cells 10. Row 10, the lowest, holds ink in some 70 glyphs only, so it is the
row that goes; each glyph gives up a row in the way that costs it no stroke.
"""

import argparse
import pathlib
import sys

from assets.fontx2 import fontx2_shift_jis, fontx2_single_byte, runs_of_codes
from assets.pcf import read_pcf

SOURCE_FOLDER = "/usr/share/fonts/X11/misc"
FULL_WIDTH_SOURCE = "mplus_j10r.pcf.gz"
HALF_WIDTH_SOURCE = "mplus_j10r-jisx0201.pcf.gz"

BLANK_FULL_WIDTH = ["." * 10] * 10
BLANK_HALF_WIDTH = ["." * 5] * 10

# The module's font has one block more than the characters fill: two blank cells behind the last kanji, which no text
# reaches.
EXTRA_BLOCK = [(code, BLANK_FULL_WIDTH) for code in (0xEAA5, 0xEAA6)]

# Latin, Greek and Cyrillic. Beside their neighbours they must keep the height of their heads.
LETTER_ROWS = (3, 6, 7)


def without_one_row(rows, keeps_top):
    """The 11 rows of an M+ glyph as 10."""
    top, bottom = rows[0], rows[10]
    if "#" not in bottom or bottom == rows[9]:
        return rows[:10]
    row = _row_of_longest_run(rows)
    if "#" not in top and (row is None or not keeps_top):
        return rows[1:]
    return rows[:row] + rows[row + 1:]


def _row_of_longest_run(rows):
    """The first row of the longest run of equal inner rows that hold ink: a stem or a bowl that can be one shorter.
    None where no two such rows are equal."""
    best, best_length = None, 1
    start = 1
    while start < 10:
        end = start
        while end < 9 and rows[end + 1] == rows[start]:
            end += 1
        if "#" in rows[start] and end - start + 1 > best_length:
            best, best_length = start, end - start + 1
        start = end + 1
    return best


def shift_jis_code(jis):
    """From a JIS X 0208 code, such as 0x3021, to the Shift_JIS code of the same character."""
    row, cell = (jis >> 8) - 0x20, (jis & 0xFF) - 0x20
    lead = (row - 1) // 2 + (0x81 if row <= 62 else 0xC1)
    if row % 2 == 0:
        return lead << 8 | cell + 0x9E
    return lead << 8 | cell + (0x3F if cell <= 63 else 0x40)


def full_width_font(source):
    glyphs = {}
    for jis, glyph in read_pcf(source).items():
        is_letter = (jis >> 8) - 0x20 in LETTER_ROWS
        glyphs[shift_jis_code(jis)] = without_one_row(glyph.rows, keeps_top=is_letter)
    return fontx2_shift_jis("", runs_of_codes(glyphs) + [EXTRA_BLOCK])


def half_width_font(source):
    """Codes below 32 hold line pieces in the source; blank here, so that a line feed in a text shows nothing."""
    found = read_pcf(source)
    glyphs = [BLANK_HALF_WIDTH] * 256
    for code in range(32, 256):
        if code in found:
            glyphs[code] = without_one_row(found[code].rows, keeps_top=True)
    return fontx2_single_byte("M+Gothic", glyphs)


def main():
    arguments = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    arguments.add_argument("output", type=pathlib.Path, help="folder for MPLZN10X.FNT and MPLHN10x.FNT")
    arguments.add_argument("--source", type=pathlib.Path, default=pathlib.Path(SOURCE_FOLDER),
                           help="folder of the M+ PCF files")
    options = arguments.parse_args()
    for name in (FULL_WIDTH_SOURCE, HALF_WIDTH_SOURCE):
        if not (options.source / name).is_file():
            sys.exit(f"{options.source / name} is missing: install the package xfonts-mplus")
    (options.output / "MPLZN10X.FNT").write_bytes(full_width_font(options.source / FULL_WIDTH_SOURCE))
    (options.output / "MPLHN10x.FNT").write_bytes(half_width_font(options.source / HALF_WIDTH_SOURCE))


if __name__ == "__main__":
    main()
