"""The two forms in which pictures are embedded, and the colours that survive them."""


def rgb565(colour):
    red, green, blue = colour
    return red >> 3 << 11 | green >> 2 << 5 | blue >> 3


def packed_12_bit(picture):
    """Components of four bits in the order R, G, B as a stream of 16-bit little-endian words, highest nibble first."""
    nibbles = [component >> 4 for colour in picture.pixels for component in colour]
    packed = bytearray()
    for first, second, third, fourth in zip(*[iter(nibbles)] * 4):
        packed += bytes((third << 4 | fourth, first << 4 | second))
    return bytes(packed)


def as_shown_565(colour):
    """What is left of a colour on the screen after its way through 16 bits."""
    red, green, blue = colour
    return red & 0xF8, green & 0xFC, blue & 0xF8


def as_shown_12_bit(colour):
    """What is left of a colour on the screen after its way through 12 bits."""
    return tuple(component & 0xF0 for component in colour)
