"""The right picture of the starting screen, on black: the singer whose face is that of the lip-sync screen."""

from assets.colours import as_shown_565
from assets.picture import Picture

from .palette import (BLUSH, CUSHION, HAIR, HAIR_DEEP, HAIR_LIGHT, HAIR_SHADE, LAMP, NOTE_YELLOW, ORANGE, ORANGE_LIGHT,
                      OUTLINE, PART_COLOURS, SKIN, SKIN_SHADE, WHITE)
from .shapes import blob, ellipse, mirrored, moved, paint, polygon, rectangle, rim, rounded, stamp

WIDTH, HEIGHT = 46, 76

DRESS, DRESS_LIGHT, DRESS_DARK = (0x30, 0x60, 0xB8), (0x68, 0xA0, 0xF0), (0x20, 0x38, 0x78)

EYE = (
    ".kkkkk.",
    "kkDDDkk",
    "kwwDDDk",
    ".wwppD.",
    ".DIppI.",
    ".IIIII.",
    ".LLLwL.",
    "..kkk..",
)
SMILE = (
    "k.....k",
    ".krrrk.",
    ".krttk.",
    "..kkk..",
)
NOTE = (
    "..nnnnn",
    "..nnnnn",
    "..n...n",
    "..n...n",
    ".nn..nn",
    "nnn.nnn",
    "nn..nn.",
)
QUAVER = (
    "..nn.",
    "..n.n",
    "..n.n",
    "..n..",
    "nnn..",
    "nnn..",
)


def sides(shape):
    return shape | mirrored(shape, WIDTH)


def outlined(picture, shape, colour, line_colour=OUTLINE):
    paint(picture, rim(shape), line_colour)
    paint(picture, shape, colour)


def draw_body(picture):
    legs = sides(rectangle(17, 62, 4, 11))
    outlined(picture, legs, SKIN)
    paint(picture, sides(rectangle(17, 66, 4, 7)), CUSHION)
    shoes = sides(blob([(14, 74), (16, 71), (20, 71), (21.5, 73), (21.5, 76), (15, 76)]))
    outlined(picture, shoes & rectangle(0, 0, WIDTH, 75), ORANGE)
    dress = sides(polygon([(24, 43), (18, 44), (15, 52), (9, 63), (12, 65), (24, 66)]))
    outlined(picture, dress, DRESS)
    paint(picture, dress & {(x, y) for x, y in dress if (x * 3 + y) % 13 == 0 and y > 53}, DRESS_DARK)
    paint(picture, dress - moved(dress, 0, -2), DRESS_LIGHT)
    paint(picture, sides(polygon([(23, 44), (19, 44), (22, 49), (24, 47)])), WHITE)
    stamp(picture, ("r.rr.r", "rrrrrr", "r.rr.r"), 20, 48, {"r": ORANGE})
    outlined(picture, sides(polygon([(16, 46), (18, 50), (11, 58), (7, 56)])), DRESS_LIGHT)
    outlined(picture, sides(ellipse(8, 58, 3, 3)), SKIN)


def draw_head(picture):
    outlined(picture, sides(blob([(23, 9), (12, 11), (4, 21), (3, 34), (2, 46), (8, 49), (24, 42)])), HAIR_DEEP)
    face = sides(blob([(23, 16), (11, 20), (7, 29), (8, 36), (13, 41), (19, 44), (23, 44.6), (28, 26)]))
    outlined(picture, face, SKIN)
    bangs = (polygon([(24, 9), (13, 11), (6, 19), (4, 30), (7, 33), (9, 27), (11, 24), (14, 27), (16, 22), (22, 27),
                      (25, 20)]) |
             polygon([(22, 9), (33, 11), (40, 19), (42, 30), (39, 33), (37, 27), (35, 24), (31, 27), (28, 22), (25, 24),
                      (22, 20)]))
    paint(picture, moved(bangs, 0, 2) & face, SKIN_SHADE)
    outlined(picture, bangs, HAIR)
    paint(picture, {(x, y) for x, y in bangs if (x, y + 2) not in bangs and y > 15}, HAIR_SHADE)
    gloss = {(x, y) for x, y in bangs if 0 <= y - (14 + ((x - 23) / 7.5) ** 2) < 2 - (x % 6 == 0)}
    paint(picture, gloss, WHITE)
    paint(picture, moved(gloss, 0, 2) & bangs - gloss, HAIR_LIGHT)
    stamp(picture, EYE, 11, 28, PART_COLOURS)
    stamp(picture, EYE, 28, 28, PART_COLOURS)
    paint(picture, sides(rectangle(10, 37, 4, 2)), BLUSH)
    stamp(picture, SMILE, 20, 38, PART_COLOURS)


def draw_headphones(picture):
    band = (ellipse(23, 26, 19.5, 19) - ellipse(23, 27.5, 17.5, 16.8)) & rectangle(0, 0, WIDTH, 24)
    outlined(picture, band, ORANGE)
    paint(picture, band - moved(band, 0, 1), ORANGE_LIGHT)
    cushion = rounded(5, 25, 3, 12, 1)
    cup = rounded(1, 24, 4, 14, 2)
    for shape, colour in ((cushion, CUSHION), (cup, ORANGE)):
        outlined(picture, sides(shape), colour)
    paint(picture, sides(rectangle(3, 29, 1, 4)), LAMP)


def starting_right():
    picture = Picture(WIDTH, HEIGHT)
    draw_body(picture)
    draw_head(picture)
    draw_headphones(picture)
    stamp(picture, NOTE, 37, 1, {"n": NOTE_YELLOW})
    stamp(picture, QUAVER, 3, 3, {"n": LAMP})
    return picture.mapped(as_shown_565)
