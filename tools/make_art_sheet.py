#!/usr/bin/env python3
"""Puts all pictures of the simulated screen onto one sheet at four times their size, to be looked at after a change."""

import argparse
import pathlib

from art.face import EYE_BOX, EYEBROW_BOX, MOUTH_BOX
from assets.picture import Picture, read_png, write_png

SCALE = 4
GROUND = (0x30, 0x30, 0x30)
GAP = 4
PICTURES = pathlib.Path(__file__).resolve().parent.parent / "resources" / "pictures"

# Combinations in which every eyebrow, eye and mouth occurs and all pairs that touch each other are mixed well.
FACES = ((0, 0, 0), (1, 1, 1), (2, 2, 2), (3, 4, 3), (0, 3, 4), (1, 5, 5), (0, 6, 6), (3, 0, 7), (2, 1, 8), (1, 3, 0))


def face(eyebrow, eye, mouth):
    picture = read_png(PICTURES / "face-base.png")
    for name, number, (x, y, width, height) in (("eyebrows", eyebrow, EYEBROW_BOX), ("eyes", eye, EYE_BOX),
                                                ("mouths", mouth, MOUTH_BOX)):
        strip = read_png(PICTURES / f"face-{name}.png")
        picture.paste(strip.crop(0, number * height, width, height), x, y)
    return picture


def starting_screen():
    picture = Picture(160, 85)
    picture.paste(read_png(PICTURES / "starting-left.png"), 2, 25)
    picture.paste(read_png(PICTURES / "starting-right.png"), 114, 9)
    return picture


def sheet():
    names = ("firmware-update.png", "performance-monitor.png", "waterfall.png")
    large = [starting_screen().enlarged(2)] + [read_png(PICTURES / name) for name in names]
    strips = [read_png(PICTURES / f"face-{name}.png") for name in ("eyebrows", "eyes", "mouths")]
    result = Picture(2 * 320 + 3 * GAP, 2 * (170 + GAP) + 2 * (64 + GAP) + GAP, GROUND)
    for number, picture in enumerate(large):
        result.paste(picture, GAP + number % 2 * (320 + GAP), GAP + number // 2 * (170 + GAP))
    top = GAP + 2 * (170 + GAP)
    for number, parts in enumerate(FACES):
        result.paste(face(*parts), GAP + number % 5 * (64 + GAP), top + number // 5 * (64 + GAP))
    x = GAP + 5 * (64 + GAP)
    result.paste(read_png(PICTURES / "face-base.png"), x, top)
    for strip in strips:
        x += GAP + (64 if strip is strips[0] else 34)
        result.paste(strip, x, top)
    return result.enlarged(SCALE)


def main():
    root = PICTURES.parent.parent
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("--output", type=pathlib.Path, default=root / "docs" / "sheets" / "art.png")
    write_png(arguments.parse_args().output, sheet())


if __name__ == "__main__":
    main()
