"""The lip-sync face. Eyebrows, eyes and mouths are cut from the whole face, so that they fit it without a seam."""

from assets.colours import as_shown_565
from assets.picture import Picture, stacked

from .face_parts import EYEBROWS, EYES, MOUTHS
from .palette import (BLUSH, CUSHION, CUSHION_LIGHT, HAIR, HAIR_DEEP, HAIR_LIGHT, HAIR_SHADE, LAMP, NOTE_YELLOW, ORANGE,
                      ORANGE_DARK, ORANGE_LIGHT, OUTLINE, PART_COLOURS, SKIN, SKIN_LINE, SKIN_SHADE, WHITE)
from .shapes import blob, edge, ellipse, line, mirrored, moved, paint, polygon, rectangle, rim, stamp

SIZE = 64

BACKDROP, BACKDROP_LIGHT, BACKDROP_LINE = (0x38, 0x58, 0x90), (0x50, 0x78, 0xB8), (0x48, 0x68, 0xA8)

# Where the module draws the parts on the face, and their size.
EYEBROW_BOX = (15, 29, 34, 6)
EYE_BOX = (15, 35, 34, 13)
MOUTH_BOX = (26, 52, 12, 9)


def both_sides(shape):
    return shape | mirrored(shape, SIZE)


def draw_backdrop(picture):
    paint(picture, rectangle(0, 0, SIZE, SIZE), BACKDROP)
    paint(picture, {(x, y) for x, y in rectangle(0, 0, SIZE, SIZE) if (x + y) % 8 < 1}, BACKDROP_LINE)
    disc = ellipse(32, 30, 31, 30)
    paint(picture, disc, BACKDROP_LIGHT)


def draw_back_hair(picture):
    left = blob([(32, 6), (18, 7), (8, 14), (4, 28), (3, 44), (1, 56), (3, 66), (32, 66)])
    shape = both_sides(left)
    paint(picture, shape, HAIR_DEEP)
    paint(picture, edge(shape), OUTLINE)


FACE = both_sides(blob([(32, 16), (18, 20), (11, 32), (11, 43), (13, 50), (18, 56), (25, 60.5), (32, 63), (38, 30)]))


def draw_face(picture, bangs):
    paint(picture, rim(FACE), OUTLINE)
    paint(picture, FACE, SKIN)
    paint(picture, (FACE - moved(FACE, 0, -2)) & rectangle(0, 50, SIZE, 20), SKIN_SHADE)
    paint(picture, (moved(bangs, 0, 2) | moved(bangs, 0, 1)) & FACE, SKIN_SHADE)
    cheek = rectangle(15, 48, 7, 2) | rectangle(16, 47, 5, 4)
    paint(picture, both_sides(cheek) & FACE, BLUSH)
    gloss = line(17, 49, 18, 47) | line(20, 49, 21, 47)
    paint(picture, (gloss | moved(gloss, 25, 0)) & FACE, SKIN_SHADE)
    paint(picture, {(31, 50)}, SKIN_SHADE)
    paint(picture, {(32, 50)}, SKIN_LINE)


def bangs_shape():
    """Six locks; the one in the middle ends between the eyes."""
    left = polygon([(33, 4), (18, 6), (9, 15), (5, 29), (10, 37), (12, 29), (14, 27), (18.5, 32), (21, 25), (24, 24),
                    (30, 33), (34, 23)])
    right = polygon([(31, 4), (46, 6), (55, 15), (59, 29), (54, 37), (52, 29), (50, 27), (45, 32.5), (42, 26),
                     (39, 24.5), (36.5, 28), (33, 23), (31, 23)])
    return left | right


def draw_bangs(picture, bangs):
    paint(picture, bangs, HAIR)
    strands = [((32, 6), (28, 30)), ((24, 7), (18, 30)), ((37, 6), (37, 26)), ((42, 7), (45, 30)), ((15, 12), (11, 34)),
               ((49, 12), (53, 34))]
    for start, end in strands:
        paint(picture, line(*start, *end) & bangs, HAIR_SHADE)
    lower = {(x, y) for x, y in bangs if (x, y + 3) not in bangs and y > 20}
    paint(picture, lower, HAIR_SHADE)
    gloss = {(x, y) for x, y in bangs if 0 <= y - (13 + ((x - 32) / 9) ** 2) < 4 - (x % 5 == 0) - (x % 7 == 3)}
    paint(picture, gloss, HAIR_LIGHT)
    paint(picture, {(x, y) for x, y in gloss if (x, y - 1) in gloss and (x, y + 1) in gloss and x % 9 not in (0, 1)},
          WHITE)
    paint(picture, edge(bangs), OUTLINE)


def draw_side_locks(picture):
    left = blob([(8, 22), (11, 27), (10, 38), (13, 48), (12, 58), (9, 65), (4, 60), (4, 46), (5, 32)])
    for shape, light in ((left, 6), (mirrored(left, SIZE), 56)):
        paint(picture, shape, HAIR)
        paint(picture, {(x, y) for x, y in shape if (x, y) not in moved(shape, -2, 0)}, HAIR_SHADE)
        paint(picture, line(light, 34, light, 52) & shape, HAIR_LIGHT)
        paint(picture, edge(shape), OUTLINE)


def draw_headphones(picture):
    band = ellipse(32, 33, 29, 32) - ellipse(32, 35, 26.5, 29)
    band &= rectangle(0, 0, SIZE, 28)
    paint(picture, band, ORANGE)
    paint(picture, band - moved(band, 0, 1), ORANGE_LIGHT)
    paint(picture, edge(band), ORANGE_DARK)
    paint(picture, rim(band) & rectangle(0, 0, SIZE, 27), OUTLINE)
    cup = blob([(2, 28), (7, 26), (9, 33), (9, 40), (7, 46), (2, 45), (0, 37)])
    cushion = blob([(8, 28), (11, 30), (12, 37), (11, 43), (8, 45)])
    for mirror in (False, True):
        place = (lambda shape: mirrored(shape, SIZE)) if mirror else (lambda shape: shape)
        paint(picture, place(cushion), CUSHION)
        paint(picture, place(cushion & moved(cushion, 1, 1)) - place(moved(cushion, 1, 0)), CUSHION_LIGHT)
        paint(picture, place(rim(cushion)), OUTLINE)
        paint(picture, place(cup), ORANGE)
        paint(picture, place(cup - moved(cup, 2, 1)), ORANGE_LIGHT)
        paint(picture, place(cup - moved(cup, -2, -1)), ORANGE_DARK)
        paint(picture, place(rim(cup)), OUTLINE)
        paint(picture, place(rectangle(4, 34, 2, 5)), LAMP)


NOTE_CLIP = (
    "  kkkkkk ",
    "  kyyyyk ",
    "  kykkyk ",
    "  kyk kyk",
    " kkyk kyk",
    "kyyyk kyk",
    "kyykkyyyk",
    " kk kyyk ",
    "     kk  ",
)


def base_face():
    picture = Picture(SIZE, SIZE)
    bangs = bangs_shape()
    draw_backdrop(picture)
    draw_back_hair(picture)
    draw_face(picture, bangs)
    draw_side_locks(picture)
    draw_bangs(picture, bangs)
    draw_headphones(picture)
    stamp(picture, NOTE_CLIP, 43, 16, {"k": OUTLINE, "y": NOTE_YELLOW})
    return picture.mapped(as_shown_565)


def parts(base, box, sprites):
    """Each sprite drawn onto the face, cut out at its box; all of them one below the other."""
    x, y, width, height = box
    cuttings = []
    for rows in sprites:
        face = base.crop(0, 0, SIZE, SIZE)
        stamp(face, rows, x, y, PART_COLOURS)
        cuttings.append(face.crop(x, y, width, height).mapped(as_shown_565))
    return stacked(cuttings)


def face_pictures():
    """The four pictures by their file names."""
    base = base_face()
    return {
        "face-base.png": base,
        "face-eyebrows.png": parts(base, EYEBROW_BOX, EYEBROWS),
        "face-eyes.png": parts(base, EYE_BOX, EYES),
        "face-mouths.png": parts(base, MOUTH_BOX, MOUTHS),
    }
