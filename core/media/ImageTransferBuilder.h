#pragma once

#include "core/protocol/Message.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <span>
#include <vector>

namespace tonavelle {

/// Why a picture could not be made into messages.
class ImageTransferError : public std::exception
{
public:
    enum class Case {
        invalidScreenNumber,  ///< carries the screen number, 32 or more
        invalidRGBBufferSize, ///< carries the number of bytes found
    };
    using enum Case;

    ImageTransferError(Case errorCase, std::int64_t value) : m_case(errorCase), m_value(value) {}

    Case errorCase() const { return m_case; }
    std::int64_t value() const { return m_value; }
    const char* what() const noexcept override { return "ImageTransferError"; }

    friend bool operator==(const ImageTransferError& left, const ImageTransferError& right)
    {
        return left.m_case == right.m_case && left.m_value == right.m_value;
    }

private:
    Case m_case;
    std::int64_t m_value;
};

} // namespace tonavelle

/// Pictures of 64 by 64 pixels as the module's row messages. A picture, `rgb888`, is 12,288 bytes: rows from the top,
/// pixels from the left, red, green and blue a pixel.
namespace tonavelle::ImageTransferBuilder {

inline constexpr int width = 64;
inline constexpr int height = 64;
inline constexpr std::size_t bytesPerPixel = 3;
inline constexpr std::size_t rgbByteCount = width * height * bytesPerPixel;
inline constexpr int screenCount = 32;
inline constexpr std::size_t rowByteCount = width * 2; ///< packed pixels of one message

/// A picture of any size, shrunk to fit by nearest neighbour, never enlarged, and centred on black. Throws
/// ImageTransferError when a side is below 1 or `rgb` is not 3 bytes a pixel.
std::vector<std::uint8_t> rgb64x64AspectFit(std::int64_t sourceWidth, std::int64_t sourceHeight,
                                            std::span<const std::uint8_t> rgb);

/// One message a row, from the top. Throws ImageTransferError for a screen above 31, then for a wrong byte count.
Batch imageTransferRows(std::uint8_t screenNumber, std::span<const std::uint8_t> rgb888);

/// The pixel in 14 bits: the top 4 of red, the top 5 of green, the top 5 of blue.
std::uint16_t rgb455Value(std::uint8_t red, std::uint8_t green, std::uint8_t blue);

/// Red, green and blue of a packed pixel, each widened to 8 bits by repeating its top bits.
std::array<std::uint8_t, bytesPerPixel> rgb888Pixel(std::uint16_t rgb455);

} // namespace tonavelle::ImageTransferBuilder
