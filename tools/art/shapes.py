"""Shapes as sets of pixels, so that they can be joined, cut and outlined, and sprites as rows of letters."""


def polygon(points):
    """The pixels whose centres lie inside, by the even-odd rule."""
    pixels = set()
    for y in range(int(min(p[1] for p in points)), int(max(p[1] for p in points)) + 1):
        crossings = []
        for (x0, y0), (x1, y1) in zip(points, points[1:] + points[:1]):
            if (y0 <= y + 0.5) != (y1 <= y + 0.5):
                crossings.append(x0 + (y + 0.5 - y0) * (x1 - x0) / (y1 - y0))
        crossings.sort()
        for first, last in zip(crossings[::2], crossings[1::2]):
            pixels.update((x, y) for x in range(round(first), round(last)))
    return pixels


def curve(points, steps=8):
    """A closed smooth line through the points, as points of a polygon."""
    result = []
    count = len(points)
    for i in range(count):
        p0, p1, p2, p3 = (points[(i + k) % count] for k in (-1, 0, 1, 2))
        for step in range(steps):
            t = step / steps
            result.append(tuple(
                0.5 * (2 * b + (c - a) * t + (2 * a - 5 * b + 4 * c - d) * t * t + (3 * b - a - 3 * c + d) * t ** 3)
                for a, b, c, d in zip(p0, p1, p2, p3)))
    return result


def blob(points):
    """The pixels inside a smooth closed line through the points."""
    return polygon(curve(points))


def ellipse(centre_x, centre_y, radius_x, radius_y):
    """Centres count from the left and upper edge of pixel 0, so that 32 is the middle of 64 pixels."""
    return {(x, y)
            for y in range(int(centre_y - radius_y), int(centre_y + radius_y) + 1)
            for x in range(int(centre_x - radius_x), int(centre_x + radius_x) + 1)
            if ((x + 0.5 - centre_x) / radius_x) ** 2 + ((y + 0.5 - centre_y) / radius_y) ** 2 <= 1}


def rectangle(x, y, width, height):
    return {(column, row) for row in range(y, y + height) for column in range(x, x + width)}


def rounded(x, y, width, height, radius):
    """A rectangle with its corners cut by the given radius."""

    def inside(column, row):
        dx = max(x + radius - column - 0.5, column + 0.5 - (x + width - radius), 0)
        dy = max(y + radius - row - 0.5, row + 0.5 - (y + height - radius), 0)
        return dx * dx + dy * dy <= radius * radius

    return {pixel for pixel in rectangle(x, y, width, height) if inside(*pixel)}


def line(x0, y0, x1, y1):
    steps = max(abs(x1 - x0), abs(y1 - y0), 1)
    return {(round(x0 + (x1 - x0) * i / steps), round(y0 + (y1 - y0) * i / steps)) for i in range(steps + 1)}


def mirrored(shape, width):
    return {(width - 1 - x, y) for x, y in shape}


def moved(shape, dx, dy):
    return {(x + dx, y + dy) for x, y in shape}


def edge(shape):
    """The pixels of the shape that have a neighbour outside, diagonals not counted."""
    return {(x, y) for x, y in shape if not {(x - 1, y), (x + 1, y), (x, y - 1), (x, y + 1)} <= shape}


def rim(shape):
    """The pixels outside the shape that touch it, diagonals not counted."""
    around = {(x + dx, y + dy) for x, y in shape for dx, dy in ((-1, 0), (1, 0), (0, -1), (0, 1))}
    return around - shape


def paint(picture, shape, colour):
    for x, y in shape:
        picture.put(x, y, colour)


def stamp(picture, rows, x, y, palette):
    """Draws rows of letters; '.' and ' ' leave the picture as it is."""
    for dy, row in enumerate(rows):
        for dx, letter in enumerate(row):
            if letter not in ". ":
                picture.put(x + dx, y + dy, palette[letter])
