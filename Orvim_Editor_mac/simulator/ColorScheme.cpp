#include "simulator/ColorScheme.h"

#include "simulator/DisplayCanvas.h"

namespace orvim {

namespace {

constexpr ColorScheme standardScheme{0x8EBCFC, 0x213A60, 0x000000, 0xFFD700, 0x3D3300};
// The module stores these two; their backgrounds do not follow the rule of the worked-out schemes.
constexpr ColorScheme gsScheme{0x000000, 0xD85E09, 0xFF6F0C, 0x000000, 0xD85E09};
constexpr ColorScheme xgScheme{0x000000, 0x6FBE1A, 0x83DF1F, 0x000000, 0x6FBE1A};

constexpr std::int32_t darkened(std::int32_t rgb)
{
    std::int32_t result = 0;
    for (const int shift : {16, 8, 0}) {
        const std::int32_t component = rgb >> shift & 0xFF;
        result |= (component - component * 40 / 255) << shift;
    }
    return result;
}

} // namespace

std::optional<ColorScheme> storedColorScheme(DisplaySimulatorColorMode mode)
{
    switch (mode) {
    case DisplaySimulatorColorMode::standard:
        return standardScheme;
    case DisplaySimulatorColorMode::gs:
        return gsScheme;
    case DisplaySimulatorColorMode::xg:
        return xgScheme;
    case DisplaySimulatorColorMode::gm2:
    case DisplaySimulatorColorMode::user:
        return std::nullopt;
    }
    return std::nullopt;
}

ColorScheme colorSchemeOf565(std::uint16_t base565)
{
    const auto base = rgbFromRGB565(base565);
    return {
        .foreground = 0,
        .background = darkened(base),
        .base = base,
        .oscilloscopeWave = 0,
        .oscilloscopeUntriggered = darkened(base),
    };
}

std::uint16_t rgb565FromRGB(std::int32_t rgb)
{
    return static_cast<std::uint16_t>((rgb >> 8 & 0xF800) | (rgb >> 5 & 0x07E0) | (rgb >> 3 & 0x001F));
}

std::uint16_t rgb565FromSevenBits(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
{
    return static_cast<std::uint16_t>((red << 9 & 0xF800) | (green >> 1 & 63) << 5 | (blue >> 2 & 31));
}

} // namespace orvim
