"""The screen during a firmware update, with the warning not to pull the cable."""

from assets.colours import as_shown_12_bit
from assets.lettering import draw_ascii, draw_japanese, japanese_width
from assets.picture import Picture

from .frame import HEIGHT, WIDTH
from .palette import BLACK, TEXT, WHITE, blend
from .shapes import line, moved, paint, polygon, rectangle, rounded

GROUND_TOP, GROUND_BOTTOM = (0x08, 0x10, 0x28), (0x10, 0x28, 0x50)
CASE, CASE_LIGHT, CASE_DARK = (0x50, 0x60, 0x80), (0x90, 0xA0, 0xC0), (0x28, 0x30, 0x48)
AMBER, AMBER_DARK = (0xF8, 0xC0, 0x30), (0x90, 0x50, 0x10)
CABLE, CABLE_LIGHT = (0x38, 0x40, 0x58), (0x70, 0x80, 0xA0)
METAL, METAL_DARK = (0xD0, 0xD8, 0xE8), (0x80, 0x88, 0xA0)
CYAN = (0x68, 0xF0, 0xC8)


def centred_japanese(picture, text, y, colour):
    draw_japanese(picture, text, (WIDTH - 2 * japanese_width(text)) // 2, y, colour, 2)


def draw_module(picture, x, y):
    """The module with its screen, on which an arrow points into memory."""
    paint(picture, rounded(x, y, 84, 52, 6), CASE_DARK)
    paint(picture, rounded(x, y, 84, 50, 6), CASE)
    paint(picture, rounded(x, y, 84, 50, 6) - moved(rounded(x, y, 84, 50, 6), 0, 1), CASE_LIGHT)
    paint(picture, rounded(x + 8, y + 7, 68, 37, 3), BLACK)
    paint(picture, rounded(x + 9, y + 8, 66, 35, 2), (0x10, 0x20, 0x40))
    chip = x + 45, y + 14
    paint(picture, rectangle(*chip, 22, 22), CASE_DARK)
    paint(picture, rectangle(chip[0] + 1, chip[1] + 1, 20, 20), (0x30, 0x48, 0x70))
    paint(picture, rectangle(chip[0] + 4, chip[1] + 4, 2, 2), CYAN)
    for pin in range(4):
        paint(picture, rectangle(chip[0] - 3, chip[1] + 2 + 5 * pin, 3, 3) |
              rectangle(chip[0] + 22, chip[1] + 2 + 5 * pin, 3, 3), METAL)
    arrow = rectangle(x + 15, y + 23, 14, 5) | polygon([(x + 28, y + 17), (x + 38, y + 25.5), (x + 28, y + 34)])
    paint(picture, arrow, CYAN)


def draw_plug(picture, x, y):
    """A USB plug that leads from the left edge into the module."""
    paint(picture, rectangle(0, y + 7, x, 6), CABLE)
    paint(picture, rectangle(0, y + 8, x, 1), CABLE_LIGHT)
    for ridge in range(3):
        paint(picture, rectangle(x - 10 + 3 * ridge, y + 5, 2, 10), CABLE)
    paint(picture, rounded(x, y, 30, 20, 3), CASE_DARK)
    paint(picture, rounded(x, y, 30, 19, 3), (0x38, 0x48, 0x68))
    paint(picture, rectangle(x + 4, y + 2, 22, 1), CASE_LIGHT)
    paint(picture, rectangle(x + 30, y + 3, 18, 14), METAL)
    paint(picture, rectangle(x + 30, y + 14, 18, 3), METAL_DARK)
    paint(picture, rectangle(x + 34, y + 5, 4, 3) | rectangle(x + 34, y + 11, 4, 3), CASE_DARK)
    trident = line(x + 6, y + 9, x + 22, y + 9)
    trident |= line(x + 10, y + 9, x + 13, y + 6) | line(x + 13, y + 6, x + 17, y + 6)
    trident |= line(x + 12, y + 9, x + 15, y + 12) | line(x + 15, y + 12, x + 18, y + 12)
    trident |= rectangle(x + 5, y + 8, 3, 3) | rectangle(x + 17, y + 5, 3, 3) | rectangle(x + 18, y + 11, 3, 3)
    paint(picture, trident | {(x + 23, y + 8), (x + 23, y + 9), (x + 23, y + 10), (x + 24, y + 9)}, METAL)


def draw_warning_sign(picture, x, y):
    paint(picture, polygon([(x + 25, y), (x + 50, y + 45), (x, y + 45)]), AMBER_DARK)
    paint(picture, polygon([(x + 25, y + 4), (x + 46, y + 43), (x + 4, y + 43)]), AMBER)
    paint(picture, polygon([(x + 22, y + 15), (x + 28, y + 15), (x + 26.6, y + 30), (x + 23.4, y + 30)]), BLACK)
    paint(picture, rounded(x + 22, y + 33, 6, 6, 2), BLACK)


def draw_progress(picture, y):
    paint(picture, rounded(20, y, 280, 16, 4), CASE_LIGHT)
    paint(picture, rounded(22, y + 2, 276, 12, 2), BLACK)
    for block in range(27):
        x = 25 + 10 * block
        colour = blend((0x30, 0x80, 0xF0), CYAN, block / 26) if block < 17 else (0x18, 0x28, 0x40)
        picture.fill(x, y + 4, 8, 8, colour)
        picture.fill(x, y + 4, 8, 2, blend(colour, WHITE, 0.4) if block < 17 else colour)


def firmware_update():
    picture = Picture(WIDTH, HEIGHT)
    for y in range(HEIGHT):
        for x in range(WIDTH):
            # Two neighbouring steps of the few that twelve bits leave are mixed in a pattern, to hide the bands.
            share = y / HEIGHT + ((x & 1) * 2 + ((x ^ y) & 1)) / 24 - 0.06
            picture.put(x, y, blend(GROUND_TOP, GROUND_BOTTOM, max(0.0, min(share, 1.0))))
    picture.fill(0, 0, WIDTH, 24, (0x20, 0x38, 0x60))
    picture.fill(0, 24, WIDTH, 2, (0x40, 0x70, 0xB0))
    centred = (WIDTH - 15 * 16) // 2
    draw_ascii(picture, "8x10", "FIRMWARE UPDATE", centred, 3, TEXT, 2)
    draw_plug(picture, 72, 49)
    draw_module(picture, 118, 33)
    draw_warning_sign(picture, 226, 36)
    centred_japanese(picture, "ファームウェア更新中", 92, WHITE)
    draw_progress(picture, 117)
    picture.fill(0, 141, WIDTH, 26, (0x60, 0x10, 0x10))
    picture.fill(0, 141, WIDTH, 1, AMBER)
    picture.fill(0, 166, WIDTH, 1, AMBER)
    centred_japanese(picture, "USBケーブルを抜かないで下さい。", 144, (0xF8, 0xD8, 0x50))
    return picture.mapped(as_shown_12_bit)
