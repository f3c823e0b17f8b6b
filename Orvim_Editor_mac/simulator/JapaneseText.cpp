#include "simulator/JapaneseText.h"

#include "core/text/ShiftJIS.h"
#include "core/text/UTF8.h"
#include "simulator/BitmapGlyph.h"
#include "simulator/EmbeddedResources.h"

#include <array>
#include <optional>

namespace orvim {

namespace {

constexpr std::uint16_t fullWidthQuestionMark = 0x8148;

bool isLeadByte(std::uint8_t byte)
{
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

bool hasShiftJIS(std::string_view text)
{
    for (const char32_t scalar : tonavelle::UTF8Scalars(text))
        if (!tonavelle::shiftJISCode(scalar)) return false;
    return true;
}

std::optional<BitmapGlyph> fullWidthGlyph(const FontX2Font& font, std::uint16_t code)
{
    const auto glyph = font.glyph(code);
    return glyph ? glyph : font.glyph(fullWidthQuestionMark);
}

} // namespace

const JapaneseFonts& builtInJapaneseFonts()
{
    static const JapaneseFonts fonts{FontX2Font(resources::mplzn10x), FontX2Font(resources::mplhn10x)};
    return fonts;
}

std::int64_t drawShiftJIS(DisplayCanvas& canvas, const JapaneseFonts& fonts, std::int64_t x, int y,
                          std::span<const std::uint8_t> bytes, std::int32_t foreground, std::int32_t background)
{
    constexpr auto unit = DisplayUnit::logical;
    const int rightEdge = displayGrid(unit).width;
    while (!bytes.empty()) {
        const bool isLead = isLeadByte(bytes[0]);
        if (isLead && bytes.size() < 2) return x;
        const auto glyph = isLead
                               ? fullWidthGlyph(fonts.fullWidth, static_cast<std::uint16_t>(bytes[0] << 8 | bytes[1]))
                               : fonts.halfWidth.glyph(bytes[0]);
        bytes = bytes.subspan(isLead ? 2 : 1);
        if (!glyph) continue;
        if (x > -glyph->width && x < rightEdge)
            drawGlyph(canvas, *glyph, static_cast<int>(x), y, foreground, background, unit);
        x += glyph->width;
    }
    return x;
}

void drawJapanese(DisplayCanvas& canvas, int x, int y, std::string_view text, std::int32_t foreground,
                  std::int32_t background)
{
    if (!hasShiftJIS(text)) return;
    // One character at a time: a row's text has no limit, and drawing should not ask for memory.
    std::int64_t penX = x;
    for (const char32_t scalar : tonavelle::UTF8Scalars(text)) {
        const std::uint16_t code = *tonavelle::shiftJISCode(scalar);
        const std::array bytes{static_cast<std::uint8_t>(code >> 8), static_cast<std::uint8_t>(code)};
        const std::size_t unusedBytes = code <= 0xFF ? 1 : 0;
        penX = drawShiftJIS(canvas, builtInJapaneseFonts(), penX, y, std::span(bytes).subspan(unusedBytes), foreground,
                            background);
    }
}

} // namespace orvim
