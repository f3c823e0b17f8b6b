"""The fonts of the simulated screen: the committed files, and the tool that makes them."""

import pathlib
import struct
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(ROOT / "tools"))

from assets.asciifont import read_ascii_font, row_bytes
from assets.fontx2 import FontX2
from make_fonts import shift_jis_code, without_one_row

FONTS = ROOT / "resources" / "fonts"


def font(name):
    return FontX2((FONTS / name).read_bytes())


def code_of(character):
    return int.from_bytes(character.encode("shift_jis"), "big")


def jis_x_0208():
    """Every character of the standard: rows 1 to 8 and the kanji, by the Shift_JIS code."""
    for row in range(1, 85):
        for cell in range(1, 95):
            code = shift_jis_code((row + 0x20) << 8 | cell + 0x20)
            try:
                code.to_bytes(2, "big").decode("shift_jis")
            except UnicodeDecodeError:
                continue
            yield code


class FullWidthFont(unittest.TestCase):
    def setUp(self):
        self.font = font("MPLZN10X.FNT")

    def test_has_the_stated_size_and_header(self):
        self.assertEqual(len(self.font.content), 139690)
        self.assertEqual(self.font.content[:18], b"FONTX2" + b"        " + bytes([10, 10, 1, 93]))

    def test_has_93_ascending_blocks_of_6965_glyphs(self):
        blocks = [struct.unpack_from("<HH", self.font.content, 18 + 4 * number) for number in range(93)]
        self.assertEqual(blocks[:3], [(0x8140, 0x817E), (0x8180, 0x81AC), (0x81B8, 0x81BF)])
        self.assertEqual(blocks[-2:], [(0xEA80, 0xEAA4), (0xEAA5, 0xEAA6)])
        self.assertEqual(sum(last - first + 1 for first, last in blocks), 6965)
        codes = [code for block in blocks for code in block]
        self.assertEqual(codes, sorted(codes))

    def test_every_character_of_the_standard_has_ink(self):
        codes = list(jis_x_0208())
        self.assertEqual(len(codes), 6879)
        blank = [code for code in codes if "#" not in "".join(self.font.glyph(code))]
        self.assertEqual(blank, [0x8140])

    def test_has_no_glyph_between_blocks(self):
        self.assertIsNone(self.font.glyph(0x817F))

    def test_hiragana_a_is_drawn_with_its_pixels(self):
        self.assertEqual(self.font.glyph(code_of("あ")), [
            "...#......",
            "...#......",
            "#########.",
            "...#......",
            "..#####...",
            ".##..#.#..",
            "#.#.#...#.",
            "#.#.#...#.",
            ".###...#..",
            ".....##...",
        ])

    def test_the_low_line_keeps_its_stroke(self):
        self.assertEqual(self.font.glyph(0x8151), ["." * 10] * 9 + ["#" * 10])


class HalfWidthFont(unittest.TestCase):
    def setUp(self):
        self.font = font("MPLHN10x.FNT")

    def test_has_the_stated_size_and_header(self):
        self.assertEqual(len(self.font.content), 2577)
        self.assertEqual(self.font.content[:17], b"FONTX2" + b"M+Gothic" + bytes([5, 10, 0]))

    def test_control_codes_and_codes_without_a_character_are_blank(self):
        for code in [*range(0x21), *range(0x7F, 0xA1), *range(0xE0, 0x100)]:
            self.assertEqual(self.font.glyph(code), ["....."] * 10, hex(code))

    def test_letters_and_katakana_are_all_distinct(self):
        codes = [*range(0x20, 0x7F), *range(0xA1, 0xE0)]
        self.assertEqual(len({tuple(self.font.glyph(code)) for code in codes}), len(codes))

    def test_letters_with_a_tail_keep_the_height_of_their_heads(self):
        for character in "gpqy":
            rows = self.font.glyph(ord(character))
            self.assertEqual([("#" in row) for row in rows], [False] * 4 + [True] * 6, character)


class GivingUpARow(unittest.TestCase):
    BLANK = "...."

    def test_an_empty_last_row_goes(self):
        rows = ["####"] + [self.BLANK] * 10
        self.assertEqual(without_one_row(rows, keeps_top=False), rows[:10])

    def test_a_last_row_like_the_one_above_it_goes(self):
        rows = ["####"] * 11
        self.assertEqual(without_one_row(rows, keeps_top=False), rows[:10])

    def test_a_glyph_below_an_empty_row_moves_up(self):
        rows = [self.BLANK] * 9 + [".##.", "####"]
        self.assertEqual(without_one_row(rows, keeps_top=False), rows[1:])

    def test_a_full_glyph_loses_one_of_its_longest_run(self):
        rows = ["####"] + ["#..."] * 2 + [".#.."] * 3 + ["#..."] * 4 + ["####"]
        self.assertEqual(without_one_row(rows, keeps_top=False),
                         ["####"] + ["#..."] * 2 + [".#.."] * 3 + ["#..."] * 3 + ["####"])

    def test_a_letter_below_an_empty_row_keeps_its_top_and_gets_shorter(self):
        rows = [self.BLANK] * 3 + ["####"] + ["#..#"] * 4 + ["####", "...#", "###."]
        self.assertEqual(without_one_row(rows, keeps_top=True),
                         [self.BLANK] * 3 + ["####"] + ["#..#"] * 3 + ["####", "...#", "###."])


class ASCIIFonts(unittest.TestCase):
    FILES = (("ascii8x10.txt", 8, 10), ("ascii5x10.txt", 5, 10), ("ascii6x7.txt", 6, 7))
    CAPITAL_A = (
        [0x00, 0x3C, 0x42, 0x42, 0x42, 0x7E, 0x42, 0x42, 0x00, 0x00],
        [0x00, 0x0C, 0x12, 0x12, 0x12, 0x1E, 0x12, 0x12, 0x12, 0x12],
        [0x1E, 0x22, 0x22, 0x22, 0x3E, 0x22, 0x22],
    )

    def glyphs(self, file):
        name, width, height = file
        return read_ascii_font(FONTS / name, width, height)

    def test_capital_a_is_the_one_of_the_module(self):
        for file, expected in zip(self.FILES, self.CAPITAL_A):
            self.assertEqual(row_bytes(self.glyphs(file)[ord("A") - 32]), expected, file[0])

    def test_all_95_glyphs_are_distinct_and_only_the_space_is_blank(self):
        for file in self.FILES:
            glyphs = self.glyphs(file)
            self.assertEqual(len({tuple(rows) for rows in glyphs}), 95, file[0])
            self.assertEqual([i for i, rows in enumerate(glyphs) if "#" not in "".join(rows)], [0], file[0])

    def test_capitals_and_digits_have_the_height_of_a(self):
        for file in self.FILES:
            glyphs = self.glyphs(file)
            height = self.inked_rows(glyphs[ord("A") - 32])
            for character in "BCDEFGHIJKLMNOPQRSTUVWXYZ0123456789":
                self.assertEqual(self.inked_rows(glyphs[ord(character) - 32]), height, (file[0], character))

    @staticmethod
    def inked_rows(rows):
        inked = [y for y, row in enumerate(rows) if "#" in row]
        return inked[0], inked[-1]


if __name__ == "__main__":
    unittest.main()
