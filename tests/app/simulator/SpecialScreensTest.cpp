#include "CanvasReading.h"
#include "RenderedScreen.h"
#include "simulator/DisplayText.h"
#include "simulator/EmbeddedResources.h"
#include "simulator/JapaneseText.h"

#include <algorithm>
#include <climits>
#include <gtest/gtest.h>
#include <string>

namespace orvim {
namespace {

using test::background;
using test::base;
using test::fieldsInTestColors;
using test::foreground;
using test::isFilled;
using test::logical;
using test::opaque;
using test::physical;
using test::pixelAt;
using test::rendered;
using test::textOf;

DisplayFields special(DisplaySimulatorSpecialMode mode)
{
    auto fields = fieldsInTestColors();
    fields.specialMode = mode;
    return fields;
}

DisplayCanvas knob(int value)
{
    auto fields = special(DisplaySimulatorSpecialMode::knob);
    fields.knobValue = value;
    return rendered(fields);
}

/// The knob screen as its statement has it: the header text, and so many of the forty bars lit.
testing::AssertionResult isKnobScreen(const DisplayCanvas& canvas, const std::string& text, int litBars)
{
    DisplayCanvas expected;
    fillRect(expected, 0, 0, 159, 19, background);
    fillRect(expected, 0, 20, 159, 84, base);
    drawText8(expected, 0, 0, text, foreground, background);
    for (int i = 0; i < 40; ++i)
        for (int y = 70 - i; y <= 70; ++y)
            fillRect(expected, 18 + 3 * i, y, 19 + 3 * i, y, i < litBars ? foreground : background);
    if (std::ranges::equal(canvas.bytes(), expected.bytes())) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "not the knob screen of " << text;
}

TEST(KnobScreen, ValueZeroIsMuteWithAllBarsInTheBackgroundColour)
{
    for (const int value : {INT_MIN, -1, 0})
        EXPECT_TRUE(isKnobScreen(knob(value), "    VOLUME: MUTE", 0));
}

TEST(KnobScreen, ValueFiftyShowsForty)
{
    for (const int value : {40, 50, INT_MAX})
        EXPECT_TRUE(isKnobScreen(knob(value), "    VOLUME: 40", 40));
}

TEST(KnobScreen, LightsAsManyBarsAsItsValue)
{
    EXPECT_TRUE(isKnobScreen(knob(1), "    VOLUME: 1", 1));
    EXPECT_TRUE(isKnobScreen(knob(20), "    VOLUME: 20", 20));
    EXPECT_TRUE(isKnobScreen(knob(39), "    VOLUME: 39", 39));
}

TEST(KnobScreen, TheWedgeRunsFrom18To136)
{
    const auto canvas = knob(40);
    EXPECT_TRUE(isFilled(canvas, logical, 18, 70, 19, 70, opaque(foreground)));
    EXPECT_TRUE(isFilled(canvas, logical, 135, 31, 136, 70, opaque(foreground)));
    EXPECT_TRUE(isFilled(canvas, logical, 135, 30, 136, 30, opaque(base)));
    EXPECT_TRUE(isFilled(canvas, logical, 137, 20, 159, 84, opaque(base)));
    EXPECT_TRUE(isFilled(canvas, logical, 0, 71, 159, 84, opaque(base)));
}

struct ErrorCase {
    DisplaySimulatorErrorKind kind;
    std::string title;
    std::vector<std::string> lines;
};

TEST(ErrorScreen, EveryKindHasItsTitleAndLines)
{
    const std::vector<ErrorCase> cases{
        {DisplaySimulatorErrorKind::vbusLow,
         "USB VOLTAGE IS LOW",
         {"【USBポートの電圧が低下】", "USBハブの使用をやめて下さい。", "他のUSB機器を取り外して下さい。"}},
        {DisplaySimulatorErrorKind::psramInit,
         "PSRAM INIT ERROR!",
         {"【PSRAMの初期化失敗】", "USBケーブルを抜いて下さい。"}},
        {DisplaySimulatorErrorKind::psramTest,
         "PSRAM TEST ERROR!",
         {"【PSRAMの読書失敗】", "USBケーブルを抜いて下さい。"}},
        {DisplaySimulatorErrorKind::dac, "DAC ERROR!", {"【DACチップの初期化失敗】", "USBケーブルを抜いて下さい。"}},
    };
    for (const auto& [kind, title, lines] : cases) {
        auto fields = special(DisplaySimulatorSpecialMode::error);
        fields.errorKind = kind;
        DisplayCanvas expected;
        fillRect(expected, 0, 0, 159, 84, 0x000000);
        drawText8(expected, 0, 0, title, 0xF8FC00, 0x000000);
        for (std::size_t n = 0; n < lines.size(); ++n)
            drawJapanese(expected, 0, 20 + 11 * static_cast<int>(n), lines[n], 0xF8A400, 0x000000);
        EXPECT_TRUE(std::ranges::equal(rendered(fields).bytes(), expected.bytes())) << title;
    }
}

TEST(ErrorScreen, EveryLineIsDrawn)
{
    auto fields = special(DisplaySimulatorSpecialMode::error);
    for (int kind = 0; kind < 4; ++kind) {
        fields.errorKind = static_cast<DisplaySimulatorErrorKind>(kind);
        const auto canvas = rendered(fields);
        for (int n = 0; n < (kind == 0 ? 3 : 2); ++n)
            EXPECT_FALSE(isFilled(canvas, logical, 0, 20 + 11 * n, 159, 29 + 11 * n, opaque(0x000000)))
                << "its characters are all in Shift_JIS";
    }
}

TEST(StartingScreen, ShowsTheVersionsAndTheArtOnBlack)
{
    const auto canvas = rendered(special(DisplaySimulatorSpecialMode::starting));
    DisplayCanvas expected;
    fillRect(expected, 0, 0, 159, 84, 0x000000);
    drawText8(expected, 0, 0, "FW:", 0x8EBCFC, 0x000000);
    drawText8(expected, 26, 0, "1.2.0.a", 0x8EBCFC, 0x000000);
    drawText8(expected, 0, 10, "HW:", 0x8EBCFC, 0x000000);
    drawText8(expected, 26, 10, "0B", 0x8EBCFC, 0x000000);
    for (int i = 0; i < 112 * 57; ++i) {
        const auto rgb = rgbFromRGB565(resources::startingArtLeft[static_cast<std::size_t>(i)]);
        fillRect(expected, 2 + i % 112, 25 + i / 112, 2 + i % 112, 25 + i / 112, rgb);
    }
    for (int i = 0; i < 46 * 76; ++i) {
        const auto rgb = rgbFromRGB565(resources::startingArtRight[static_cast<std::size_t>(i)]);
        fillRect(expected, 114 + i % 46, 9 + i / 46, 114 + i % 46, 9 + i / 46, rgb);
    }
    EXPECT_TRUE(std::ranges::equal(canvas.bytes(), expected.bytes()));
}

TEST(FirmwareUpdateScreen, ShowsItsPictureWhole)
{
    const auto canvas = rendered(special(DisplaySimulatorSpecialMode::firmwareUpdate));
    const auto& packed = resources::firmwareUpdateScreen;
    for (int y = 0; y < 170; ++y)
        for (int group = 0; group < 80; ++group) {
            const auto at = static_cast<std::size_t>(y * 480 + group * 6);
            const test::PixelBytes first{packed[at + 1] & 0xF0, (packed[at + 1] & 0x0F) << 4, packed[at] & 0xF0, 255};
            ASSERT_EQ(pixelAt(canvas, group * 4, y), first) << group * 4 << ", " << y;
        }
    EXPECT_EQ(pixelAt(canvas, 319, 169).alpha, 255);
}

TEST(SpecialScreens, ShowNeitherHeaderNorStripNorMainArea)
{
    auto plain = special(DisplaySimulatorSpecialMode::knob);
    auto busy = plain;
    busy.displayType = DisplaySimulatorType::pianoRoll;
    busy.asciiText = std::string(40, '#');
    busy.leftLevel = 63;
    busy.subDisplay = DisplaySimulatorSubDisplay::over;
    busy.isJapaneseMode = true;
    busy.japaneseUpper = "あ";
    EXPECT_TRUE(std::ranges::equal(rendered(plain).bytes(), rendered(busy).bytes()));
}

TEST(SpecialScreens, ThePlainFillsStandUnderTheKnob)
{
    const auto canvas = knob(0);
    EXPECT_TRUE(isFilled(canvas, logical, 0, 10, 159, 19, opaque(background)));
    EXPECT_TRUE(isFilled(canvas, logical, 0, 20, 159, 29, opaque(base)));
    EXPECT_TRUE(isFilled(canvas, physical, 0, 142, 319, 169, opaque(base)));
}

} // namespace
} // namespace orvim
