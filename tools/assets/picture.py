"""Small pictures of 8-bit RGB pixels, and PNG files of them, with the standard library alone."""

import struct
import zlib

_SIGNATURE = b"\x89PNG\r\n\x1a\n"


class Picture:
    """`width` by `height` pixels; `pixels` holds one (red, green, blue) per pixel, row by row from the top."""

    def __init__(self, width, height, fill=(0, 0, 0)):
        self.width = width
        self.height = height
        self.pixels = [fill] * (width * height)

    def get(self, x, y):
        return self.pixels[y * self.width + x]

    def put(self, x, y, colour):
        """Outside the picture nothing happens."""
        if 0 <= x < self.width and 0 <= y < self.height:
            self.pixels[y * self.width + x] = colour

    def fill(self, x, y, width, height, colour):
        for row in range(y, y + height):
            for column in range(x, x + width):
                self.put(column, row, colour)

    def paste(self, other, x, y):
        for row in range(other.height):
            for column in range(other.width):
                self.put(x + column, y + row, other.get(column, row))

    def crop(self, x, y, width, height):
        part = Picture(width, height)
        for row in range(height):
            for column in range(width):
                part.put(column, row, self.get(x + column, y + row))
        return part

    def enlarged(self, scale):
        large = Picture(self.width * scale, self.height * scale)
        large.pixels = []
        for y in range(self.height):
            row = []
            for colour in self.pixels[y * self.width:(y + 1) * self.width]:
                row.extend([colour] * scale)
            large.pixels.extend(row * scale)
        return large

    def mapped(self, change):
        """The same picture with `change` applied to every colour."""
        result = Picture(self.width, self.height)
        result.pixels = [change(colour) for colour in self.pixels]
        return result


def stacked(pictures):
    """Pictures of one width, one below the other."""
    strip = Picture(pictures[0].width, sum(picture.height for picture in pictures))
    y = 0
    for picture in pictures:
        strip.paste(picture, 0, y)
        y += picture.height
    return strip


def write_png(path, picture):
    """With 256 colours or fewer the file holds a palette, which keeps pixel art small."""
    palette = sorted(set(picture.pixels))
    if len(palette) > 256:
        bits, kind, header = 8, 2, b""
        data = b"".join(bytes(colour) for colour in picture.pixels)
        pitch = picture.width * 3
    else:
        bits, kind, header = _depth_for(len(palette)), 3, _chunk(b"PLTE", b"".join(map(bytes, palette)))
        index = {colour: number for number, colour in enumerate(palette)}
        rows = []
        for y in range(picture.height):
            row = [index[colour] for colour in picture.pixels[y * picture.width:(y + 1) * picture.width]]
            rows.append(_packed_row(row, bits))
        data = b"".join(rows)
        pitch = len(rows[0])
    filtered = b"".join(b"\0" + data[start:start + pitch] for start in range(0, len(data), pitch))
    with open(path, "wb") as file:
        file.write(_SIGNATURE)
        file.write(_chunk(b"IHDR", struct.pack(">IIBBBBB", picture.width, picture.height, bits, kind, 0, 0, 0)))
        file.write(header)
        file.write(_chunk(b"IDAT", zlib.compress(filtered, 9)))
        file.write(_chunk(b"IEND", b""))


def read_png(path):
    """Reads the PNG files that `write_png` and common pixel editors write: palette, RGB or RGBA, not interlaced.
    Transparency is dropped. Raises ValueError for anything else."""
    with open(path, "rb") as file:
        content = file.read()
    if content[:8] != _SIGNATURE:
        raise ValueError(f"{path}: not a PNG file")
    chunks = dict.fromkeys((b"IHDR", b"PLTE", b"IDAT"), b"")
    position = 8
    while position < len(content):
        length, name = struct.unpack_from(">I4s", content, position)
        if name in chunks:
            chunks[name] += content[position + 8:position + 8 + length]
        position += 12 + length
    width, height, bits, kind, _, _, interlaced = struct.unpack(">IIBBBBB", chunks[b"IHDR"])
    samples = {2: 3, 3: 1, 6: 4}.get(kind)
    if samples is None or interlaced or (kind != 3 and bits != 8):
        raise ValueError(f"{path}: save it as 8-bit RGB, RGBA or palette without interlacing")
    rows = _unfiltered(zlib.decompress(chunks[b"IDAT"]), height, (width * samples * bits + 7) // 8,
                       max(1, samples * bits // 8))
    picture = Picture(width, height)
    if kind == 3:
        palette = [tuple(chunks[b"PLTE"][i:i + 3]) for i in range(0, len(chunks[b"PLTE"]), 3)]
        picture.pixels = [palette[value] for row in rows for value in _unpacked_row(row, bits, width)]
    else:
        picture.pixels = [tuple(row[i:i + 3]) for row in rows for i in range(0, width * samples, samples)]
    return picture


def _depth_for(colours):
    return next(bits for bits in (1, 2, 4, 8) if colours <= 1 << bits)


def _packed_row(values, bits):
    per_byte = 8 // bits
    values = values + [0] * (-len(values) % per_byte)
    row = bytearray()
    for start in range(0, len(values), per_byte):
        byte = 0
        for value in values[start:start + per_byte]:
            byte = byte << bits | value
        row.append(byte)
    return bytes(row)


def _unpacked_row(row, bits, width):
    mask = (1 << bits) - 1
    return [byte >> shift & mask for byte in row for shift in range(8 - bits, -1, -bits)][:width]


def _chunk(name, data):
    return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))


def _unfiltered(data, height, pitch, step):
    rows = []
    above = bytearray(pitch)
    for y in range(height):
        start = y * (pitch + 1)
        rule = data[start]
        row = bytearray(data[start + 1:start + 1 + pitch])
        for i in range(pitch):
            left = row[i - step] if i >= step else 0
            corner = above[i - step] if i >= step else 0
            row[i] = (row[i] + _prediction(rule, left, above[i], corner)) & 0xFF
        rows.append(row)
        above = row
    return rows


def _prediction(rule, left, above, corner):
    if rule == 4:
        estimate = left + above - corner
        return min((left, above, corner), key=lambda value: abs(estimate - value))
    return (0, left, above, (left + above) // 2)[rule]
