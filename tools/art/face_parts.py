"""Eyebrows, eyes and mouths of the lip-sync face as sprites, in the order in which the module numbers them.

Their letters are those of PART_COLOURS.
"""

def _joined(left, right):
    """The part at the left and the mirror image of the other; each has up to 17 columns, half of the whole."""
    return tuple(a.ljust(17, ".") + b.ljust(17, ".")[::-1] for a, b in zip(left, right))


def _pair(rows):
    return _joined(rows, rows)


def _over(rows, marks):
    """The rows with further letters put at (x, y)."""
    grid = [list(row) for row in rows]
    for x, y, letters in marks:
        for i, letter in enumerate(letters):
            grid[y][x + i] = letter
    return tuple("".join(row) for row in grid)


EYEBROWS = (
    _pair((  # normal
        "",
        "....bbbbbb",
        ".bbbbbbbbbb",
        ".bbb....bbb",
        "",
        "",
    )),
    _pair((  # gentle
        "....bbbb",
        "..bbbbbbbb",
        ".bbb...bbbb",
        "bbb......b",
        "bb",
        "",
    )),
    _pair((  # sad
        ".........bbb",
        ".......bbbbb",
        ".....bbbbb",
        "..bbbbbb",
        ".bbbbb",
        ".bb",
    )),
    _pair((  # angry
        "bb",
        "bbbb",
        ".bbbbbb",
        "...bbbbbbb",
        ".....bbbbbbb",
        "........bbbb",
    )),
)

_OPEN = (
    "...kkkkkkk",
    ".kkkkkkkkkk",
    "kkkssDDDDskk",
    ".kksDDDDDDDkk",
    "..kwDDppDDDsk",
    "..kwDDppppDDs",
    "..kwDIppppIDw",
    "...wIIppppIIw",
    "...wIIIppIIIw",
    "...wILLIILLIw",
    "....wILLLLIw",
    ".....kIIIIk",
    "......kkkk",
)
_HALF = (
    "",
    "",
    "",
    "....mmmmm",
    "",
    "..kkkkkkkkk",
    "kkkkkkkkkkkk",
    ".kksDppppDDkk",
    "..kwIppppIIsk",
    "...wIIppIIIw",
    "....wILLLLIw",
    ".....kIIIIk",
    "......kkkk",
)
_CLOSED = (
    "", "", "", "", "", "", "",
    "k..........k",
    "kk........kk",
    ".kkk....kkk",
    "k..kkkkkkk",
    ".k...k..k",
    "",
)
_SMILE = (
    "", "", "", "",
    "....kkkk",
    "..kkkkkkkk",
    ".kkk....kkk",
    ".kk......kk",
    "kk........kk",
    "k..........k",
    "", "", "",
)
_SQUEEZED = (
    "", "",
    "kkk",
    ".kkkk",
    "...kkkk",
    ".....kkkk",
    ".......kkk",
    ".....kkkk",
    "...kkkk",
    ".kkkk",
    "kkk",
    "", "",
)
_STAR = (
    "...kkkkkkk",
    ".kkkkkkkkkk",
    "kkksDDDDDDkk",
    ".kkDDDyyDDDkk",
    "..kDDDyyDDDDk",
    "..kDDyyyyDDDs",
    "..kyyywwyyyDw",
    "...yyywwyyyIw",
    "...wIIyyyyIIw",
    "...wIIIyyIIIw",
    "....wILyyLIw",
    ".....kILLIk",
    "......kkkk",
)

_GLINTS = ((5, 3, "ww"), (5, 4, "ww"), (9, 9, "w"), (24, 3, "ww"), (24, 4, "ww"), (28, 9, "w"))
_RIGHT_GLINTS = tuple(glint for glint in _GLINTS if glint[0] > 16)

EYES = (
    _over(_pair(_OPEN), _GLINTS),
    _over(_pair(_HALF), ((5, 8, "w"), (24, 8, "w"))),
    _pair(_CLOSED),
    _pair(_SMILE),
    _pair(_SQUEEZED),
    _pair(_STAR),
    _over(_joined(_SMILE, _OPEN), _RIGHT_GLINTS),
)

MOUTHS = (
    (  # closed
        "", "",
        "..k......k..",
        "...kkkkkk...",
        "",
        "", "", "", "",
    ),
    (  # a
        "..kkkkkkkk..",
        ".kwwwwwwwwk.",
        ".krrrrrrrrk.",
        ".krrrrrrrrk.",
        "..krttttrk..",
        "..krtTTtrk..",
        "...kttttk...",
        "....kkkk....",
        "",
    ),
    (  # i
        "", "",
        ".kkkkkkkkkk.",
        "kwwwwwwwwwwk",
        ".kwwwwwwwwk.",
        "..kkkkkkkk..",
        "",
        "....mmmm....",
        "",
    ),
    (  # u
        "", "",
        "....kkkk....",
        "...krrrrk...",
        "...krttrk...",
        "....kkkk....",
        "",
        ".....mm.....",
        "",
    ),
    (  # e
        "",
        "..kkkkkkkk..",
        ".kwwwwwwwwk.",
        ".krrrrrrrrk.",
        "..krttttrk..",
        "...kkkkkk...",
        "", "", "",
    ),
    (  # o
        "....kkkk....",
        "...krrrrk...",
        "..krrrrrrk..",
        "..krrrrrrk..",
        "..krrttrrk..",
        "..krttttrk..",
        "...kttttk...",
        "....kkkk....",
        "",
    ),
    (  # tongue
        "",
        "k..........k",
        ".kkk....kkk.",
        "...kkkkkk...",
        ".....kttttk.",
        ".....ktmttk.",
        ".....ktTTtk.",
        "......kkkk..",
        "",
    ),
    (  # complaint
        "",
        "....kkkk....",
        "..kkwwwwkk..",
        ".kwwrrrrwwk.",
        ".krrrrrrrrk.",
        "kkrkkkkkkrkk",
        ".kk......kk.",
        "", "",
    ),
    (  # in between
        "", "",
        "...kkkkkk...",
        "..krrrrrrk..",
        "...kttttk...",
        "....kkkk....",
        "", "", "",
    ),
)
