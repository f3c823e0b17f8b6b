"""The three ASCII fonts as text: below each line of a code and its character stand the rows of the cell."""

FIRST_CODE, LAST_CODE = 32, 126


def read_ascii_font(path, width, height):
    """The 95 glyphs in code order, each a list of row strings. Raises ValueError where the text is not such a font."""
    glyphs = {}
    rows = None
    with open(path, encoding="ascii") as file:
        for number, line in enumerate(file, 1):
            line = line.rstrip("\n")
            if line.startswith("0x"):
                rows = glyphs.setdefault(int(line[:4], 16), [])
            elif line and set(line) <= {".", "#"} and len(line) == width and rows is not None:
                rows.append(line)
            elif line and not line.startswith("//"):
                raise ValueError(f"{path}:{number}: not a row of {width} pixels")
    if sorted(glyphs) != list(range(FIRST_CODE, LAST_CODE + 1)):
        raise ValueError(f"{path}: the codes must be those of the 95 printable characters")
    for code, rows in glyphs.items():
        if len(rows) != height:
            raise ValueError(f"{path}: 0x{code:02X} must have {height} rows")
    return [glyphs[code] for code in sorted(glyphs)]


def row_bytes(rows):
    """One byte a row, the leftmost pixel in the highest of the bits used."""
    return [int(row.replace(".", "0").replace("#", "1"), 2) for row in rows]
