"""FONTX2 fonts: fixed cells, one glyph after another, codes of one byte or of Shift_JIS."""

import struct


def fontx2_single_byte(name, glyphs):
    """`glyphs` holds 256 glyphs in code order, each a list of row strings of '.' and '#'."""
    return _header(name, glyphs[0], 0) + b"".join(map(_glyph_bytes, glyphs))


def fontx2_shift_jis(name, blocks):
    """`blocks` are lists of (code, glyph), ascending, the codes of each without a gap."""
    header = _header(name, blocks[0][0][1], 1) + bytes([len(blocks)])
    table = b"".join(struct.pack("<HH", block[0][0], block[-1][0]) for block in blocks)
    return header + table + b"".join(_glyph_bytes(glyph) for block in blocks for _, glyph in block)


def runs_of_codes(glyphs_by_code):
    """The glyphs as blocks: every longest run of consecutive codes is one."""
    blocks = []
    for code in sorted(glyphs_by_code):
        if not blocks or blocks[-1][-1][0] != code - 1:
            blocks.append([])
        blocks[-1].append((code, glyphs_by_code[code]))
    return blocks


class FontX2:
    """Looks up the glyphs of a FONTX2 file as lists of row strings."""

    def __init__(self, content):
        self.content = content
        self.width, self.height, self.is_shift_jis = content[14:17]
        self.pitch = (self.width + 7) // 8

    def glyph(self, code):
        """None where the font has no such code."""
        if not self.is_shift_jis:
            return self._glyph_at(17, code) if code < 256 else None
        count = self.content[17]
        passed = 0
        for number in range(count):
            first, last = struct.unpack_from("<HH", self.content, 18 + 4 * number)
            if first <= code <= last:
                return self._glyph_at(18 + 4 * count, passed + code - first)
            passed += last - first + 1
        return None

    def _glyph_at(self, start, number):
        rows = []
        for y in range(self.height):
            offset = start + (number * self.height + y) * self.pitch
            bits = "".join(f"{byte:08b}" for byte in self.content[offset:offset + self.pitch])
            rows.append(bits[:self.width].translate({48: ".", 49: "#"}))
        return rows


def _header(name, glyph, flag):
    return b"FONTX2" + name.encode("ascii").ljust(8)[:8] + bytes([len(glyph[0]), len(glyph), flag])


def _glyph_bytes(rows):
    pitch = (len(rows[0]) + 7) // 8
    result = bytearray()
    for row in rows:
        bits = int(row.replace(".", "0").replace("#", "1").ljust(pitch * 8, "0"), 2)
        result += bits.to_bytes(pitch, "big")
    return bytes(result)
