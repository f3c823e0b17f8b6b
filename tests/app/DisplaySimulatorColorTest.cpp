#include "DisplaySimulatorState.h"

#include <gtest/gtest.h>

namespace orvim {
namespace {

using Mode = DisplaySimulatorColorMode;

ColorScheme schemeOf(const DisplaySimulatorState& state)
{
    const auto& fields = state.fields();
    return {fields.foregroundRGB, fields.backgroundRGB, fields.baseRGB, fields.oscilloscopeWaveRGB,
            fields.oscilloscopeUntriggeredRGB};
}

bool imageIsPlain(const DisplaySimulatorState& state, std::uint8_t red, std::uint8_t green, std::uint8_t blue)
{
    const auto& image = state.fields().arbitraryImageRGB;
    for (std::size_t i = 0; i < image.size(); i += 3) {
        if (image[i] != red || image[i + 1] != green || image[i + 2] != blue) return false;
    }
    return image.size() == 12288;
}

TEST(DisplaySimulatorColor, StandardScheme)
{
    DisplaySimulatorState state;
    state.setColorMode(Mode::gs);
    state.setLcdColor(1, 2, 3);
    state.setColorMode(Mode::standard);
    EXPECT_EQ(schemeOf(state), (ColorScheme{0x8EBCFC, 0x213A60, 0x000000, 0xFFD700, 0x3D3300}));
    EXPECT_TRUE(imageIsPlain(state, 0, 0, 0));
    EXPECT_EQ(state.fields().lcdColorSet, (DisplayColor{63.0 / 127, 63.0 / 127, 63.0 / 127, 1}));
}

TEST(DisplaySimulatorColor, GM2Scheme)
{
    DisplaySimulatorState state;
    state.setColorMode(Mode::gm2);
    EXPECT_EQ(state.fields().colorMode, Mode::gm2);
    EXPECT_EQ(schemeOf(state), (ColorScheme{0x000000, 0x1BBABD, 0x20DCE0, 0x000000, 0x1BBABD}));
    EXPECT_TRUE(imageIsPlain(state, 0x20, 0xDC, 0xE0));
}

TEST(DisplaySimulatorColor, GSScheme)
{
    DisplaySimulatorState state;
    state.setColorMode(Mode::gs);
    EXPECT_EQ(state.fields().colorMode, Mode::gs);
    EXPECT_EQ(schemeOf(state), (ColorScheme{0x000000, 0xD85E09, 0xFF6F0C, 0x000000, 0xD85E09}));
    EXPECT_TRUE(imageIsPlain(state, 0xFF, 0x6F, 0x0C));
}

TEST(DisplaySimulatorColor, XGScheme)
{
    DisplaySimulatorState state;
    state.setColorMode(Mode::xg);
    EXPECT_EQ(state.fields().colorMode, Mode::xg);
    EXPECT_EQ(schemeOf(state), (ColorScheme{0x000000, 0x6FBE1A, 0x83DF1F, 0x000000, 0x6FBE1A}));
    EXPECT_TRUE(imageIsPlain(state, 0x83, 0xDF, 0x1F));
}

TEST(DisplaySimulatorColor, UserSchemeReducesThePresentBase)
{
    DisplaySimulatorState state;
    state.setColorMode(Mode::gs);
    state.setColorMode(Mode::user);
    EXPECT_EQ(state.fields().colorMode, Mode::user);
    // FF6F0C has the RGB565 value FB61; F8 loses 38, 6C loses 16, 08 loses 1.
    EXPECT_EQ(schemeOf(state), (ColorScheme{0x000000, 0xD25C07, 0xF86C08, 0x000000, 0xD25C07}));
    EXPECT_TRUE(imageIsPlain(state, 0xF8, 0x6C, 0x08));
}

TEST(DisplaySimulatorColor, PictureIsKeptWhenTheBaseStays)
{
    DisplaySimulatorState state;
    state.setColorMode(Mode::xg);
    state.fillArbitraryImage(0x010203);
    state.setColorMode(Mode::xg);
    EXPECT_TRUE(imageIsPlain(state, 1, 2, 3));
}

TEST(DisplaySimulatorColor, SchemeOf565FillsOnlyWhenAsked)
{
    DisplaySimulatorState state;
    state.applyColor565(0xFFFF, Mode::user, false);
    EXPECT_EQ(state.fields().baseRGB, 0xF8FCF8);
    EXPECT_EQ(state.fields().backgroundRGB, 0xD2D5D2);
    EXPECT_TRUE(imageIsPlain(state, 0, 0, 0));
    state.applyColor565(0x0000, Mode::user, true);
    state.applyColor565(0xFFFF, Mode::user, true);
    EXPECT_TRUE(imageIsPlain(state, 0xF8, 0xFC, 0xF8));
}

TEST(DisplaySimulatorColor, FullLcdColorLeavesThePicture)
{
    DisplaySimulatorState state;
    state.setLcdColor(127, 127, 127);
    EXPECT_EQ(state.fields().colorMode, Mode::user);
    EXPECT_EQ(state.fields().baseRGB, 0xF8FCF8);
    EXPECT_EQ(state.fields().lcdColorSet, (DisplayColor{1, 1, 1, 1}));
    EXPECT_TRUE(imageIsPlain(state, 0, 0, 0));
}

TEST(DisplaySimulatorColor, LcdColorTakesTheUpperBitsOfEachComponent)
{
    DisplaySimulatorState state;
    state.setLcdColor(64, 1, 4);
    EXPECT_EQ(state.fields().baseRGB, 0x800008);
    state.setLcdColor(3, 2, 3);
    EXPECT_EQ(state.fields().baseRGB, 0x000400);
    EXPECT_EQ(state.fields().lcdColorSet, (DisplayColor{3.0 / 127, 2.0 / 127, 3.0 / 127, 1}));
    state.setLcdColor(63, 63, 63);
    EXPECT_EQ(state.fields().baseRGB, 0x787C78);
}

TEST(DisplaySimulatorColor, LcdColorIgnoresBitSevenInTheStoredColour)
{
    DisplaySimulatorState state;
    state.setLcdColor(0xFF, 0x80, 0x81);
    EXPECT_EQ(state.fields().lcdColorSet, (DisplayColor{1, 0, 1.0 / 127, 1}));
}

TEST(DisplaySimulatorColor, UserModeAfterAnLcdColorKeepsTheColours)
{
    DisplaySimulatorState state;
    state.setLcdColor(100, 37, 9);
    const auto before = state.fields();
    state.setColorMode(Mode::user);
    EXPECT_EQ(state.fields(), before);
}

} // namespace
} // namespace orvim
