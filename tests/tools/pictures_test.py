"""Pictures, PNG files of them, and the forms in which they are embedded."""

import pathlib
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(ROOT / "tools"))

from assets.colours import packed_12_bit, rgb565
from assets.picture import Picture, read_png, write_png


class Forms(unittest.TestCase):
    def test_sixteen_bits_hold_five_red_six_green_five_blue(self):
        self.assertEqual(rgb565((0xF8, 0, 0)), 0xF800)
        self.assertEqual(rgb565((0, 0xFC, 0)), 0x07E0)
        self.assertEqual(rgb565((0, 0, 0xFF)), 0x001F)

    def test_four_pixels_of_twelve_bits_fill_six_bytes_with_words_swapped(self):
        picture = Picture(4, 1)
        picture.pixels = [(0x10, 0x20, 0x30), (0x4F, 0x50, 0x60), (0x70, 0x80, 0x90), (0xA0, 0xB0, 0xC0)]
        self.assertEqual(packed_12_bit(picture).hex(" "), "34 12 78 56 bc 9a")


class PNGFiles(unittest.TestCase):
    def round_trip(self, picture):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "picture.png"
            write_png(path, picture)
            return read_png(path)

    def test_pictures_of_two_to_many_colours_come_back(self):
        for colours in (2, 4, 16, 200, 1000):
            picture = Picture(37, 31)
            picture.pixels = [(i % colours & 0xFF, i % colours >> 8, 7) for i in range(37 * 31)]
            self.assertEqual(self.round_trip(picture).pixels, picture.pixels, colours)

    def test_another_file_is_refused(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "picture.png"
            path.write_bytes(b"GIF89a")
            with self.assertRaises(ValueError):
                read_png(path)


if __name__ == "__main__":
    unittest.main()
