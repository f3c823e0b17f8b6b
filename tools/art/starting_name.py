"""The left picture of the starting screen, on black: the name of the module above a keyboard."""

from assets.colours import as_shown_565
from assets.lettering import draw_ascii
from assets.picture import Picture

from .palette import BLACK, ORANGE, ORANGE_DARK, ORANGE_LIGHT, TEXT, blend
from .shapes import moved, paint, polygon, rectangle, rounded

SHADOW = (0x18, 0x28, 0x58)
LETTER_TOP, LETTER_BOTTOM = (0xF8, 0xFC, 0xF8), (0x48, 0x88, 0xF0)
KEY_WHITE, KEY_BLACK, KEY_GAP = (0xE8, 0xEC, 0xF8), (0x20, 0x20, 0x38), (0x48, 0x50, 0x78)


def ring(x, y, width, height):
    return rounded(x, y, width, height, 5) - rounded(x + 3, y + 3, width - 6, height - 6, 2)


def letter(name, x, y):
    """The pixels and the width of a letter whose cap line is y; capitals are 19 high, small letters 13."""
    low = y + 6
    if name == "T":
        return rectangle(x, y, 13, 3) | rectangle(x + 5, y, 3, 19), 13
    if name == "l":
        return rectangle(x, y, 3, 19), 3
    if name == "o":
        return ring(x, low, 12, 13), 12
    if name == "n":
        return (ring(x, low, 11, 24) & rectangle(x, low, 11, 13)) | rectangle(x, low, 3, 13), 11
    if name == "a":
        return ring(x, low, 12, 13) | rectangle(x + 9, low, 3, 13), 12
    if name == "v":
        outside = [(x, low), (x + 5, low + 13), (x + 8, low + 13), (x + 13, low)]
        return polygon(outside + [(x + 9.6, low), (x + 6.5, low + 8.6), (x + 3.4, low)]), 13
    if name == "e":
        gap = rectangle(x + 8, low + 8, 4, 2)
        return (ring(x, low, 12, 13) - gap) | rectangle(x + 2, low + 5, 9, 3), 12
    raise ValueError(name)


def word_shape(word, x, y):
    shape = set()
    for name in word:
        pixels, width = letter(name, x, y)
        shape |= pixels
        x += width + 2
    return shape


def draw_wordmark(picture):
    shape = word_shape("Tonavelle", 1, 1)
    paint(picture, moved(shape, 2, 2) | moved(shape, 1, 1) | moved(shape, 1, 2) | moved(shape, 2, 1), SHADOW)
    for x, y in shape:
        picture.put(x, y, blend(LETTER_TOP, LETTER_BOTTOM, max(0, y - 4) / 16))


def draw_badge(picture):
    pill = rounded(72, 24, 38, 13, 6)
    paint(picture, pill, ORANGE)
    paint(picture, pill - moved(pill, 0, 1), ORANGE_LIGHT)
    paint(picture, pill - moved(pill, 0, -1), ORANGE_DARK)
    draw_ascii(picture, "8x10", "mini", 75, 26, (0x30, 0x10, 0x08))
    draw_ascii(picture, "5x10", "USB-MIDI", 2, 26, TEXT)
    for i, height in enumerate((1, 3, 5, 2, 4)):
        paint(picture, rectangle(47 + i * 4, 31 - height, 2, 2 * height), blend(TEXT, ORANGE, i / 4))


LIT_KEYS = {2: (0xF8, 0x68, 0xB0), 4: (0xF8, 0xD0, 0x40), 6: (0x40, 0xE0, 0xA0), 10: (0x48, 0xB8, 0xF8)}


def draw_keyboard(picture):
    for key in range(16):
        x = key * 7
        colour = LIT_KEYS.get(key, KEY_WHITE)
        paint(picture, rectangle(x, 42, 6, 14), colour)
        paint(picture, rectangle(x, 54, 6, 2), blend(colour, KEY_GAP, 0.35))
        paint(picture, rectangle(x, 56, 6, 1), KEY_GAP)
        paint(picture, rectangle(x + 6, 42, 1, 15), KEY_GAP)
        if key in LIT_KEYS:
            paint(picture, rectangle(x, 40, 6, 1), blend(colour, BLACK, 0.4))
    for key in range(15):
        if key % 7 not in (2, 6):
            x = key * 7 + 4
            paint(picture, rectangle(x, 42, 5, 8), KEY_BLACK)
            paint(picture, rectangle(x + 1, 42, 2, 6), KEY_GAP)


def starting_left():
    picture = Picture(112, 57)
    draw_wordmark(picture)
    draw_badge(picture)
    draw_keyboard(picture)
    return picture.mapped(as_shown_565)
