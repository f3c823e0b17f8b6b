#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

/// The fonts and pictures that the module's screen is made of, as the module holds them.
namespace orvim::resources {

/// `width` by `height` pixels of 16 bits (5 red, 6 green, 5 blue from the top bit), row by row.
template <std::size_t width, std::size_t height>
using Picture565 = std::array<std::uint16_t, width * height>;

/// 320 by 170 pixels of 12 bits, 480 bytes a row: components of four bits in the order R, G, B, taken from 16-bit
/// little-endian words, highest nibble first.
using PackedScreen = std::array<std::uint8_t, 480 * 170>;

/// The glyphs of the codes 32 to 126, a byte for each row from the top, the rightmost pixel in bit 0.
template <std::size_t rows>
using ASCIIFont = std::array<std::array<std::uint8_t, rows>, 95>;

extern const Picture565<64, 64> faceBase;
extern const std::array<Picture565<34, 6>, 4> faceEyebrows;
extern const std::array<Picture565<34, 13>, 7> faceEyes;
extern const std::array<Picture565<12, 9>, 9> faceMouths;
extern const Picture565<112, 57> startingArtLeft;
extern const Picture565<46, 76> startingArtRight;

extern const PackedScreen firmwareUpdateScreen;
extern const PackedScreen performanceMonitorScreen;
extern const PackedScreen waterfallScreen;

extern const ASCIIFont<10> asciiFont8x10;
extern const ASCIIFont<10> asciiFont5x10;
extern const ASCIIFont<8> asciiFont6x7; ///< the eighth row is blank and not drawn

extern const std::span<const std::uint8_t> mplzn10x; ///< the whole full-width FONTX2 file
extern const std::span<const std::uint8_t> mplhn10x; ///< the whole half-width FONTX2 file

} // namespace orvim::resources
