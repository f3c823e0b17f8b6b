#!/usr/bin/env python3
"""Writes the fonts and pictures of the simulated screen as a C++ source file. Runs as a step of the build."""

import argparse
import pathlib

from assets.asciifont import read_ascii_font, row_bytes
from assets.colours import packed_12_bit, rgb565
from assets.picture import read_png

# name, picture file, count, width, height; several pictures stand one below the other in their file
PICTURES = (
    ("faceBase", "face-base.png", 1, 64, 64),
    ("faceEyebrows", "face-eyebrows.png", 4, 34, 6),
    ("faceEyes", "face-eyes.png", 7, 34, 13),
    ("faceMouths", "face-mouths.png", 9, 12, 9),
    ("startingArtLeft", "starting-left.png", 1, 112, 57),
    ("startingArtRight", "starting-right.png", 1, 46, 76),
)

SCREENS = (
    ("firmwareUpdateScreen", "firmware-update.png"),
    ("performanceMonitorScreen", "performance-monitor.png"),
    ("waterfallScreen", "waterfall.png"),
)

# name, text file, width and height of a cell, rows stored
ASCII_FONTS = (
    ("asciiFont8x10", "ascii8x10.txt", 8, 10, 10),
    ("asciiFont5x10", "ascii5x10.txt", 5, 10, 10),
    ("asciiFont6x7", "ascii6x7.txt", 6, 7, 8),
)

FONT_FILES = (("mplzn10x", "MPLZN10X.FNT"), ("mplhn10x", "MPLHN10x.FNT"))

NUMBERS_PER_LINE = 32


def picture_of_size(path, width, height):
    picture = read_png(path)
    if (picture.width, picture.height) != (width, height):
        raise ValueError(f"{path}: must be {width} by {height} pixels")
    return picture


def array_of(kind, numbers):
    """The type and the value of a std::array, over several lines."""
    numbers = list(map(str, numbers))
    lines = [",".join(numbers[i:i + NUMBERS_PER_LINE]) for i in range(0, len(numbers), NUMBERS_PER_LINE)]
    return f"std::array<{kind}, {len(numbers)}>", "{{\n" + ",\n".join(lines) + "}}"


def array_of_arrays(arrays):
    """The same for arrays that are all of one type."""
    kinds, values = zip(*arrays)
    return f"std::array<{kinds[0]}, {len(arrays)}>", "{{" + ",\n".join(values) + "}}"


def picture_definition(folder, name, file_name, count, width, height):
    pixels = picture_of_size(folder / file_name, width, height * count).pixels
    size = width * height
    arrays = [array_of("std::uint16_t", map(rgb565, pixels[i * size:(i + 1) * size])) for i in range(count)]
    return name, *(arrays[0] if count == 1 else array_of_arrays(arrays))


def screen_definition(folder, name, file_name):
    return name, *array_of("std::uint8_t", packed_12_bit(picture_of_size(folder / file_name, 320, 170)))


def ascii_font_definition(folder, name, file_name, width, height, stored_rows):
    glyphs = [row_bytes(rows) for rows in read_ascii_font(folder / file_name, width, height)]
    return name, *array_of_arrays(
        [array_of("std::uint8_t", rows + [0] * (stored_rows - height)) for rows in glyphs])


def source_text(resources):
    pictures, fonts = resources / "pictures", resources / "fonts"
    definitions = [picture_definition(pictures, *row) for row in PICTURES]
    definitions += [screen_definition(pictures, *row) for row in SCREENS]
    definitions += [ascii_font_definition(fonts, *row) for row in ASCII_FONTS]
    parts = ["// Made by tools/embed_resources.py from resources/fonts and resources/pictures; do not edit.\n"
             '#include "simulator/EmbeddedResources.h"\n\n'
             "namespace orvim::resources {\n"]
    parts += [f"\nconst {kind} {name}{value};\n" for name, kind, value in definitions]
    for name, file_name in FONT_FILES:
        kind, value = array_of("std::uint8_t", (fonts / file_name).read_bytes())
        parts.append(f"\nstatic constexpr {kind} {name}File{value};\n")
        parts.append(f"const std::span<const std::uint8_t> {name}{{{name}File}};\n")
    parts.append("\n} // namespace orvim::resources\n")
    return "".join(parts)


def main():
    arguments = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    arguments.add_argument("resources", type=pathlib.Path, help="the resources folder")
    arguments.add_argument("output", type=pathlib.Path, help="the source file to write")
    options = arguments.parse_args()
    options.output.write_text(source_text(options.resources), encoding="ascii")


if __name__ == "__main__":
    main()
