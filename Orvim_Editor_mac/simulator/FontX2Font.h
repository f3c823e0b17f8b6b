#pragma once

#include "simulator/BitmapGlyph.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace orvim {

/// A font file in the FONTX2 layout, read where it lies. Any bytes will do: what is not there is a missing glyph.
class FontX2Font
{
public:
    /// `file` must outlive the font.
    explicit FontX2Font(std::span<const std::uint8_t> file) : m_file(file) {}

    /// Where the glyph of that code begins in the file; nothing if the font lacks it or ends before the glyph does.
    std::optional<std::size_t> glyphOffset(std::uint16_t code) const;

    /// The glyph of that code, if the font has it.
    std::optional<BitmapGlyph> glyph(std::uint16_t code) const;

private:
    bool hasGlyphs() const;
    std::size_t bytesPerRow() const;
    std::size_t bytesPerGlyph() const;
    std::optional<std::size_t> glyphIndex(std::uint16_t code) const;
    std::size_t glyphDataOffset() const;

    std::span<const std::uint8_t> m_file;
};

} // namespace orvim
