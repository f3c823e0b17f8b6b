#include "core/text/UTF8.h"
#include "simulator/DisplayPrimitives.h"
#include "simulator/DisplayScreens.h"
#include "simulator/DisplayText.h"
#include "simulator/JapaneseText.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace orvim {

namespace {

constexpr std::size_t headerCharacters = 40;
constexpr std::size_t longestCharacter = 4;

/// The bytes of the first 40 characters of a text, blanks in place of those that it lacks.
class HeaderText
{
public:
    explicit HeaderText(std::string_view text)
    {
        for (std::size_t i = 0; i < headerCharacters; ++i) {
            const auto byteCount = text.empty() ? 0 : tonavelle::readScalar(text).byteCount;
            append(text.empty() ? std::string_view(" ") : text.substr(0, byteCount));
            text.remove_prefix(byteCount);
        }
    }

    std::string_view view() const { return {m_bytes.data(), m_size}; }

private:
    void append(std::string_view character)
    {
        std::ranges::copy(character, m_bytes.begin() + static_cast<std::ptrdiff_t>(m_size));
        m_size += character.size();
    }

    std::array<char, headerCharacters * longestCharacter> m_bytes;
    std::size_t m_size = 0;
};

void drawUSBMark(const DisplayFields& fields, DisplayCanvas& canvas)
{
    fillRect(canvas, 152, 0, 152, 9, fields.foregroundRGB);
    drawText5(canvas, 153, 0, "U", fields.backgroundRGB, fields.foregroundRGB);
}

} // namespace

void drawHeader(const DisplayFields& fields, DisplayCanvas& canvas)
{
    if (fields.isJapaneseMode) {
        drawJapanese(canvas, 0, 0, fields.japaneseUpper, fields.foregroundRGB, fields.backgroundRGB);
        drawJapanese(canvas, 0, 10, fields.japaneseLower, fields.foregroundRGB, fields.backgroundRGB);
        return;
    }
    drawText8(canvas, 0, 0, HeaderText(fields.asciiText).view(), fields.foregroundRGB, fields.backgroundRGB);
    if (fields.showsUSB) drawUSBMark(fields, canvas);
}

} // namespace orvim
