#include "simulator/FontX2Font.h"

namespace orvim {

namespace {

constexpr std::size_t widthOffset = 14;
constexpr std::size_t heightOffset = 15;
constexpr std::size_t codeFlagOffset = 16;
constexpr std::uint8_t shiftJISFlag = 1;
constexpr std::size_t singleByteDataOffset = 17;
constexpr std::size_t blockCountOffset = 17;
constexpr std::size_t blocksOffset = 18;
constexpr std::size_t bytesPerBlock = 4;
constexpr std::size_t smallestFile = 19;

} // namespace

bool FontX2Font::hasGlyphs() const
{
    return m_file.size() >= smallestFile;
}

std::size_t FontX2Font::bytesPerRow() const
{
    return (static_cast<std::size_t>(m_file[widthOffset]) + 7) / 8;
}

std::size_t FontX2Font::bytesPerGlyph() const
{
    return bytesPerRow() * m_file[heightOffset];
}

std::size_t FontX2Font::glyphDataOffset() const
{
    if (m_file[codeFlagOffset] != shiftJISFlag) return singleByteDataOffset;
    return blocksOffset + bytesPerBlock * m_file[blockCountOffset];
}

std::optional<std::size_t> FontX2Font::glyphIndex(std::uint16_t code) const
{
    if (m_file[codeFlagOffset] != shiftJISFlag) return code <= 0xFF ? std::optional<std::size_t>(code) : std::nullopt;

    std::size_t passedGlyphs = 0;
    for (std::size_t i = 0; i < m_file[blockCountOffset]; ++i) {
        const std::size_t offset = blocksOffset + i * bytesPerBlock;
        if (offset + bytesPerBlock > m_file.size()) return std::nullopt;
        const auto block = m_file.subspan(offset, bytesPerBlock);
        const auto start = static_cast<std::size_t>(block[0] | block[1] << 8);
        const auto end = static_cast<std::size_t>(block[2] | block[3] << 8);
        if (code >= start && code <= end) return passedGlyphs + code - start;
        if (end >= start) passedGlyphs += end - start + 1;
    }
    return std::nullopt;
}

std::optional<std::size_t> FontX2Font::glyphOffset(std::uint16_t code) const
{
    if (!hasGlyphs()) return std::nullopt;
    const auto index = glyphIndex(code);
    if (!index) return std::nullopt;
    const std::size_t offset = glyphDataOffset() + *index * bytesPerGlyph();
    if (offset + bytesPerGlyph() > m_file.size()) return std::nullopt;
    return offset;
}

std::optional<BitmapGlyph> FontX2Font::glyph(std::uint16_t code) const
{
    const auto offset = glyphOffset(code);
    if (!offset) return std::nullopt;
    return BitmapGlyph{
        .rows = m_file.subspan(*offset, bytesPerGlyph()),
        .width = m_file[widthOffset],
        .height = m_file[heightOffset],
        .bytesPerRow = bytesPerRow(),
        .unusedHighBits = 0,
    };
}

} // namespace orvim
