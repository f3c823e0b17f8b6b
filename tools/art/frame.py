"""What every main screen shows around its main area."""

from assets.lettering import draw_ascii
from assets.picture import Picture

from .palette import BAND, TEXT

WIDTH, HEIGHT = 320, 170

RULE = (0x4C, 0x4C, 0x4C)


def screen_with_frame():
    """The header band and the meters at the right, on black."""
    picture = Picture(WIDTH, HEIGHT)
    picture.fill(0, 0, WIDTH, 40, BAND)
    draw_ascii(picture, "8x10", "    [Tonavelle]     ", 0, 0, TEXT, 2)
    draw_ascii(picture, "8x10", "- MIDI Synthesizer -", 0, 20, TEXT, 2)
    picture.fill(258, 42, 2, 128, RULE)
    draw_ascii(picture, "5x10", "24/60", 266, 42, TEXT, 2)
    for x, level in ((264, 62), (292, 78)):
        for y in range(64, 168, 2):
            lit = y > 168 - level
            green = (0x00, 0xF0, 0x00) if lit else (0x00, 0x20, 0x00)
            yellow = (0xF0, 0xF0, 0x00) if lit else (0x20, 0x20, 0x00)
            picture.fill(x, y, 24, 2, green if y > 112 else yellow)
        picture.fill(x, 168, 24, 2, (0x00, 0xF0, 0x00))
    return picture
