"""The committed pictures of the simulated screen are what the tool draws, and lose nothing on their way to it."""

import pathlib
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(ROOT / "tools"))

from art.palette import PART_COLOURS
from assets.colours import as_shown_12_bit, as_shown_565
from assets.picture import read_png
from make_art import all_pictures

FOLDER = ROOT / "resources" / "pictures"
SCREENS = {"firmware-update.png", "performance-monitor.png", "waterfall.png"}


class CommittedPictures(unittest.TestCase):
    def test_are_what_the_tool_draws(self):
        drawn = all_pictures()
        self.assertEqual(sorted(drawn), sorted(path.name for path in FOLDER.glob("*.png")))
        for name, picture in drawn.items():
            committed = read_png(FOLDER / name)
            self.assertEqual((committed.width, committed.height), (picture.width, picture.height), name)
            self.assertTrue(committed.pixels == picture.pixels, f"{name} differs from what tools/make_art.py draws")

    def test_hold_only_colours_that_the_screen_shows(self):
        for path in FOLDER.glob("*.png"):
            shown = as_shown_12_bit if path.name in SCREENS else as_shown_565
            for colour in set(read_png(path).pixels):
                self.assertEqual(colour, shown(colour), path.name)


class FaceParts(unittest.TestCase):
    BOXES = {"eyebrows": (15, 29, 34, 6), "eyes": (15, 35, 34, 13), "mouths": (26, 52, 12, 9)}

    def test_show_the_face_wherever_they_have_no_ink_of_their_own(self):
        """A part cut from another face would differ from this one in its skin, and show a seam."""
        base = read_png(FOLDER / "face-base.png")
        inks = {as_shown_565(colour) for colour in PART_COLOURS.values()}
        for name, (x, y, width, height) in self.BOXES.items():
            strip = read_png(FOLDER / f"face-{name}.png")
            below = base.crop(x, y, width, height).pixels
            for number in range(strip.height // height):
                part = strip.crop(0, number * height, width, height).pixels
                drawn = [pixel for pixel, face in zip(part, below) if pixel != face]
                self.assertTrue(drawn, (name, number))
                self.assertLessEqual(set(drawn), inks, (name, number))


if __name__ == "__main__":
    unittest.main()
