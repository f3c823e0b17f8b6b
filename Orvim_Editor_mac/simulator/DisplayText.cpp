#include "simulator/DisplayText.h"

#include "core/text/UTF8.h"
#include "simulator/BitmapGlyph.h"
#include "simulator/EmbeddedResources.h"

#include <cstddef>

namespace orvim {

namespace {

/// How the cells of one font follow each other, in the font's unit. A cell goes to the next row when the pen's x plus
/// `wrapRoom` is `wrapAt` or more.
struct TextLayout {
    int cellWidth;
    int cellHeight;
    int wrapRoom;
    int wrapAt;
    int lineHeight;
    DisplayUnit unit;
};

constexpr TextLayout layout8x10{
    .cellWidth = 8, .cellHeight = 10, .wrapRoom = 8, .wrapAt = 161, .lineHeight = 10, .unit = DisplayUnit::logical};
constexpr TextLayout layout5x10{
    .cellWidth = 5, .cellHeight = 10, .wrapRoom = 8, .wrapAt = 164, .lineHeight = 10, .unit = DisplayUnit::logical};
constexpr TextLayout layout6x7{
    .cellWidth = 6, .cellHeight = 7, .wrapRoom = 6, .wrapAt = 321, .lineHeight = 8, .unit = DisplayUnit::physical};

/// Where the next cell goes. In 64 bits, because a text may begin anywhere and be of any length.
class TextPen
{
public:
    TextPen(const TextLayout& textLayout, int startX, int startY)
        : m_layout(textLayout), m_startX(startX), m_x(startX), m_y(startY)
    {
    }

    /// Goes to the next row where this one is full; false when there is no room below either.
    bool findCell()
    {
        if (m_x + m_layout.wrapRoom >= m_layout.wrapAt) {
            m_x = m_startX;
            m_y += m_layout.lineHeight;
        }
        return m_y + m_layout.lineHeight <= displayGrid(m_layout.unit).height;
    }

    void advance() { m_x += m_layout.cellWidth; }

    // A cell begins at the start column or left of the wrap, and never below the screen.
    int x() const { return static_cast<int>(m_x); }
    int y() const { return static_cast<int>(m_y); }

private:
    const TextLayout& m_layout;
    std::int64_t m_startX;
    std::int64_t m_x;
    std::int64_t m_y;
};

constexpr std::uint8_t firstCode = 32;
constexpr std::uint8_t lastCode = 126;

/// Draws one cell a code. `codes` yields bytes or scalars, of which the low eight bits count.
template <typename Codes, std::size_t rows>
void drawCells(DisplayCanvas& canvas, const TextLayout& layout, const resources::ASCIIFont<rows>& font, int x, int y,
               const Codes& codes, std::int32_t foreground, std::int32_t background)
{
    TextPen pen(layout, x, y);
    for (const auto character : codes) {
        if (!pen.findCell()) return;
        const auto code = static_cast<std::uint8_t>(character);
        if (code <= lastCode) {
            const std::size_t index = code < firstCode ? 0u : code - firstCode;
            const BitmapGlyph glyph{font[index], layout.cellWidth, layout.cellHeight, 1, 8 - layout.cellWidth};
            drawGlyph(canvas, glyph, pen.x(), pen.y(), foreground, background, layout.unit);
        }
        pen.advance();
    }
}

} // namespace

void drawText8(DisplayCanvas& canvas, int x, int y, std::string_view text, std::int32_t foreground,
               std::int32_t background)
{
    drawCells(canvas, layout8x10, resources::asciiFont8x10, x, y, text, foreground, background);
}

void drawText5(DisplayCanvas& canvas, int x, int y, std::string_view text, std::int32_t foreground,
               std::int32_t background)
{
    drawCells(canvas, layout5x10, resources::asciiFont5x10, x, y, tonavelle::UTF8Scalars(text), foreground, background);
}

void drawText6(DisplayCanvas& canvas, int x, int y, std::string_view text, std::int32_t foreground,
               std::int32_t background)
{
    drawCells(canvas, layout6x7, resources::asciiFont6x7, x, y, tonavelle::UTF8Scalars(text), foreground, background);
}

} // namespace orvim
