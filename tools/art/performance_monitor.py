"""The performance monitor: sixteen channels, each with its name and a keyboard of its held keys."""

import math

from assets.colours import as_shown_12_bit
from assets.lettering import draw_ascii

from .frame import screen_with_frame
from .palette import BAND, BLACK, TEXT, WHITE, blend

PART_NAMES = ("GrandPno", "A.Guitar", "FingerBs", "Strings", "BrassSec", "AltoSax", "Flute", "SquareLd", "NewAgePd",
              "STANDARD", "Vibes", "Harp", "ChoirAah", "SawLead", "E.Piano1", "Crystal")

# The keys held on each channel, 0 to 127.
PLAYED = ((48, 60, 64, 67), (52, 55, 59), (28,), (60, 64, 67, 72), (55, 58, 62), (74,), (86,), (79,),
          (48, 55, 64), (36, 38, 42), (91, 95), (), (60, 67), (67,), (), (100,))

BLACK_KEYS = (1, 3, 6, 8, 10)
KEY_WHITE, KEY_BLACK = (0x50, 0x60, 0x80), (0x18, 0x20, 0x38)


def channel_colour(channel):
    """Sixteen hues around the circle, light enough on the dark keys."""
    angle = channel / 16 * 2 * math.pi
    return tuple(round(0xA0 + 0x58 * math.cos(angle - shift * 2 * math.pi / 3)) for shift in range(3))


def draw_channel_row(picture, channel):
    top = 42 + 8 * channel
    picture.fill(0, top, 128, 7, BAND)
    draw_ascii(picture, "6x7", f"CH{channel + 1:02d}", 1, top, TEXT)
    draw_ascii(picture, "6x7", PART_NAMES[channel], 31, top, TEXT)
    colour = channel_colour(channel)
    for key in range(128):
        is_black = key % 12 in BLACK_KEYS
        picture.fill(128 + key, top, 1, 7, KEY_WHITE)
        picture.fill(128 + key, top, 1, 4 if is_black else 0, KEY_BLACK)
        if key % 12 == 0:
            picture.fill(128 + key, top + 4, 1, 3, TEXT)
    for key in PLAYED[channel]:
        picture.fill(127 + key, top, 3, 7, blend(colour, BLACK, 0.35))
        picture.fill(128 + key, top, 1, 7, blend(colour, WHITE, 0.6))
        picture.fill(127 + key, top + 4, 3, 3, colour)


def performance_monitor():
    picture = screen_with_frame()
    for channel in range(16):
        draw_channel_row(picture, channel)
    return picture.mapped(as_shown_12_bit)
