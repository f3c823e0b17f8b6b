"""The waterfall: a spectrum of the sound now, and below it how it was before, the newest at the top."""

import math

from assets.colours import as_shown_12_bit
from assets.lettering import draw_ascii

from .frame import HEIGHT, RULE, screen_with_frame
from .palette import BLACK, blend

HEAT = ((0, 0, 0), (0x10, 0x08, 0x38), (0x38, 0x10, 0x78), (0x80, 0x18, 0x88), (0xC8, 0x30, 0x60), (0xF0, 0x78, 0x28),
        (0xF8, 0xD0, 0x40), (0xF8, 0xF8, 0xD0))

MELODY = (60, 64, 67, 72, 71, 67, 64, 62, 57, 60, 64, 69, 67, 64, 60, 59, 53, 57, 60, 65, 64, 60, 57, 55)
STEP_ROWS = 8


def noise(*numbers):
    """A value from 0 to 1 that looks random and is the same at every run."""
    value = math.sin(sum(n * k for n, k in zip(numbers, (12.9898, 78.233, 37.719)))) * 43758.5453
    return value - math.floor(value)


def heat(level):
    place = max(0.0, min(level, 1.0)) * (len(HEAT) - 1)
    index = min(int(place), len(HEAT) - 2)
    return blend(HEAT[index], HEAT[index + 1], place - index)


def column_of(frequency):
    """Some five and a half octaves from 55 Hz across 256 columns."""
    return 256 * math.log2(frequency / 55) / 6


# Chords below the melody, as notes; each lasts as long as four notes of the melody.
CHORDS = ((36, 52, 55), (36, 52, 55), (33, 52, 57), (36, 55, 60), (29, 53, 57), (33, 53, 57))


def tone(column, note, partials, roll_off, width):
    """How much of a note's sound falls on a column."""
    level = 0.0
    for partial in range(1, partials + 1):
        distance = column - column_of(440 * 2 ** ((note - 69) / 12) * partial)
        level += math.exp(-distance * distance / width) / partial ** roll_off
    return level


def loudness(column, age):
    """How loud the sound was at a column's frequency so many rows ago."""
    level = 0.10 * noise(column, age, 3) + 0.04
    for back in range(4):
        step = age // STEP_ROWS + back
        since = (step + 1) * STEP_ROWS - 1 - age
        sway = math.sin(age / 2.5) * 0.7
        level += math.exp(-since / 10) * tone(column + sway, MELODY[step % len(MELODY)], 9, 0.6, 3)
    chord = CHORDS[age // (STEP_ROWS * 4) % len(CHORDS)]
    swell = 0.75 + 0.25 * math.sin(age / 6)
    level += 0.9 * tone(column, chord[0], 4, 1.4, 5)
    return level + sum(0.38 * swell * tone(column, note, 5, 0.7, 3) for note in chord[1:])


def waterfall():
    picture = screen_with_frame()
    picture.fill(0, 42, 256, 128, BLACK)
    for y in range(76, HEIGHT):
        fade = 1 - (y - 76) / 190
        for x in range(256):
            picture.put(x, y, heat(loudness(x, y - 76) * fade))
    picture.fill(0, 74, 256, 1, RULE)
    for octave in range(1, 6):
        x = round(column_of(55 * 2 ** octave))
        for y in range(44, 74, 3):
            picture.put(x, y, (0x30, 0x40, 0x60))
        draw_ascii(picture, "6x7", f"A{octave + 1}", x + 2, 43, (0x60, 0x80, 0xB0))
    for x in range(256):
        height = min(28, round(26 * loudness(x, 0) ** 0.8))
        for y in range(74 - height, 74):
            picture.put(x, y, heat(0.35 + 0.6 * (74 - y) / 28))
    return picture.mapped(as_shown_12_bit)
