#pragma once

#include "simulator/DisplayFields.h"

#include <cstdint>
#include <optional>

namespace orvim {

/// The five colours that a colour mode puts on the screen, 0xRRGGBB each.
struct ColorScheme {
    std::int32_t foreground = 0;
    std::int32_t background = 0;
    std::int32_t base = 0;
    std::int32_t oscilloscopeWave = 0;
    std::int32_t oscilloscopeUntriggered = 0;

    bool operator==(const ColorScheme&) const = default;
};

/// The base colour of the GM2 mode, RGB565.
inline constexpr std::uint16_t gm2Color565 = 0x26FC;

/// The stored scheme of `mode`; none for `gm2` and `user`, whose schemes are worked out from a base colour.
std::optional<ColorScheme> storedColorScheme(DisplaySimulatorColorMode mode);

/// The scheme of an RGB565 base colour: black on it, its background darker by 40/255.
ColorScheme colorSchemeOf565(std::uint16_t base565);

/// 0xRRGGBB reduced to RGB565.
std::uint16_t rgb565FromRGB(std::int32_t rgb);

/// Three colour values of the module, 0...127 each (bit 7 is ignored), as RGB565.
std::uint16_t rgb565FromSevenBits(std::uint8_t red, std::uint8_t green, std::uint8_t blue);

} // namespace orvim
