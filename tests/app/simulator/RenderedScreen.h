#pragma once

#include "simulator/RenderDisplay.h"

#include <cstdint>

namespace orvim::test {

inline constexpr auto logical = DisplayUnit::logical;
inline constexpr auto physical = DisplayUnit::physical;

/// Three colours that no scheme has, so that a drawing that takes the wrong one is seen.
inline constexpr std::int32_t foreground = 0x112233;
inline constexpr std::int32_t background = 0x445566;
inline constexpr std::int32_t base = 0x778899;

/// The default screen in those colours.
inline DisplayFields fieldsInTestColors()
{
    DisplayFields fields;
    fields.foregroundRGB = foreground;
    fields.backgroundRGB = background;
    fields.baseRGB = base;
    return fields;
}

inline DisplayCanvas rendered(const DisplayFields& fields)
{
    DisplayCanvas canvas;
    renderDisplay(fields, canvas);
    return canvas;
}

} // namespace orvim::test
