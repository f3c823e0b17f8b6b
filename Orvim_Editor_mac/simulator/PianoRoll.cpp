#include "simulator/DisplayPrimitives.h"
#include "simulator/DisplayScreens.h"

#include <array>
#include <cstddef>
#include <span>

namespace orvim {

namespace {

constexpr int tileWidth = 12;
constexpr int tileHeight = 3;
constexpr int tileCount = 11;

/// One octave of the keyboard, in RGB565.
constexpr std::array<std::uint16_t, tileWidth * tileHeight> pianoKeysTile{
    54970, 10565, 65535, 10565, 65535, 54970, 10565, 65535, 10565, 65535, 10565, 65535, //
    54970, 0,     65535, 0,     65535, 54970, 0,     65535, 0,     65535, 0,     65535, //
    46518, 65535, 59164, 65535, 59164, 46518, 65535, 59164, 65535, 59164, 65535, 59164, //
};

struct RowSpan {
    int top;
    int bottom;
};

constexpr int rollTop = 21;
constexpr std::array<int, 4> rowLines{28, 43, 58, 73};
constexpr std::int32_t rowLineRGB = 0x303030;

constexpr std::array<int, 3> longNoteColumns{60, 63, 67};
constexpr std::array<RowSpan, 5> longNotes{{{24, 70}, {72, 73}, {75, 76}, {78, 79}, {81, 82}}};
constexpr std::int32_t longNoteRGB = 0x00BCF8;

constexpr std::array<int, 3> shortNoteColumns{21, 23, 26};
constexpr std::array<RowSpan, 4> shortNotes{{{24, 32}, {42, 50}, {60, 68}, {78, 84}}};
constexpr std::int32_t shortNoteRGB = 0xF868B0;

constexpr std::array<int, 3> chevronColumns{120, 122, 125};
constexpr int chevronPointY = 42;
constexpr int chevronPixelsUp = 19;
constexpr int chevronPixelsDown = 43;
constexpr std::int32_t chevronRGB = 0x00FC00;

constexpr std::array<int, 12> keyMarkBottoms{22, 23, 22, 23, 23, 22, 23, 22, 23, 22, 23, 23}; ///< by x modulo 12
constexpr std::int32_t keyMarkRGB = 0xF80000;

void drawNotes(DisplayCanvas& canvas, std::span<const int> columns, std::span<const RowSpan> spans, std::int32_t rgb)
{
    for (const int x : columns)
        for (const auto& [top, bottom] : spans)
            fillRect(canvas, x, top, x, bottom, rgb);
}

void drawChevron(DisplayCanvas& canvas, int x)
{
    for (int i = 0; i < chevronPixelsUp; ++i)
        fillRect(canvas, x - i, chevronPointY - i, x - i, chevronPointY - i, chevronRGB);
    for (int i = 0; i < chevronPixelsDown; ++i)
        fillRect(canvas, x - i, chevronPointY + i, x - i, chevronPointY + i, chevronRGB);
}

void markKeys(DisplayCanvas& canvas, std::span<const int> columns)
{
    for (const int x : columns)
        fillRect(canvas, x, rollTop, x, keyMarkBottoms[static_cast<std::size_t>(x % tileWidth)], keyMarkRGB);
}

} // namespace

void drawPianoRoll(DisplayCanvas& canvas)
{
    fillRect(canvas, 0, rollTop, 127, 84, 0);
    for (int i = 0; i < tileCount; ++i)
        drawBitmap(canvas, pianoKeysTile, tileWidth, tileHeight, tileWidth * i, rollTop);
    for (const int y : rowLines)
        fillRect(canvas, 0, y, 127, y, rowLineRGB);
    drawNotes(canvas, longNoteColumns, longNotes, longNoteRGB);
    drawNotes(canvas, shortNoteColumns, shortNotes, shortNoteRGB);
    for (const int x : chevronColumns)
        drawChevron(canvas, x);
    markKeys(canvas, longNoteColumns);
    markKeys(canvas, shortNoteColumns);
    markKeys(canvas, chevronColumns);
}

} // namespace orvim
