"""Reads bitmap fonts in the X11 PCF form, gzipped or not: the metrics, bitmaps and encodings, nothing more."""

import gzip
import struct

_METRICS, _BITMAPS, _ENCODINGS = 1 << 2, 1 << 3, 1 << 5
_COMPRESSED_METRICS = 0x100


class Glyph:
    """`rows` are strings of '.' and '#'; the first of them lies `ascent` rows above the base line."""

    def __init__(self, width, ascent, rows):
        self.width = width
        self.ascent = ascent
        self.rows = rows


def read_pcf(path):
    """The glyphs by code; a code of two bytes is first byte times 256 plus second byte."""
    with open(path, "rb") as file:
        content = file.read()
    if content[:2] == b"\x1f\x8b":
        content = gzip.decompress(content)
    if content[:4] != b"\x01fcp":
        raise ValueError(f"{path}: not a PCF font")
    tables = {}
    for number in range(struct.unpack_from("<I", content, 4)[0]):
        kind, _, size, offset = struct.unpack_from("<IIII", content, 8 + 16 * number)
        tables[kind] = content[offset:offset + size]
    metrics = _metrics(tables[_METRICS])
    bitmaps = _bitmaps(tables[_BITMAPS], metrics)
    glyphs = [Glyph(width, ascent, rows) for (_, width, ascent, _), rows in zip(metrics, bitmaps)]
    return {code: glyphs[index] for code, index in _encodings(tables[_ENCODINGS]).items()}


def _order(table):
    """The format word is little-endian always; its bit 2 gives the byte order of the rest."""
    form = struct.unpack_from("<I", table)[0]
    return form, ">" if form & 4 else "<"


def _metrics(table):
    """One (left bearing, advance width, ascent, (ink width, ink height)) per glyph."""
    form, order = _order(table)
    result = []
    if form & _COMPRESSED_METRICS:
        count = struct.unpack_from(order + "H", table, 4)[0]
        for number in range(count):
            left, right, width, ascent, descent = (byte - 0x80 for byte in table[6 + 5 * number:11 + 5 * number])
            result.append((left, width, ascent, (right - left, ascent + descent)))
    else:
        count = struct.unpack_from(order + "I", table, 4)[0]
        for number in range(count):
            left, right, width, ascent, descent, _ = struct.unpack_from(order + "5hH", table, 8 + 12 * number)
            result.append((left, width, ascent, (right - left, ascent + descent)))
    return result


def _bitmaps(table, metrics):
    form, order = _order(table)
    padding = 1 << (form & 3)
    most_significant_first = bool(form & 8)
    if not most_significant_first:
        raise ValueError("PCF bitmaps with the least significant bit first are not supported")
    count = struct.unpack_from(order + "I", table, 4)[0]
    offsets = struct.unpack_from(f"{order}{count}I", table, 8)
    data = table[8 + 4 * count + 16:]
    result = []
    for offset, (left, _, _, (ink_width, height)) in zip(offsets, metrics):
        pitch = (ink_width + 8 * padding - 1) // (8 * padding) * padding
        rows = []
        for y in range(height):
            bits = "".join(f"{byte:08b}" for byte in data[offset + y * pitch:offset + (y + 1) * pitch])
            rows.append("." * left + bits[:ink_width].translate({48: ".", 49: "#"}))
        result.append(rows)
    return result


def _encodings(table):
    _, order = _order(table)
    first_low, last_low, first_high, last_high, _ = struct.unpack_from(order + "5H", table, 4)
    result = {}
    position = 14
    for high in range(first_high, last_high + 1):
        for low in range(first_low, last_low + 1):
            index = struct.unpack_from(order + "H", table, position)[0]
            position += 2
            if index != 0xFFFF:
                result[high * 256 + low] = index
    return result
