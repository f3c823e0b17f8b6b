#include "DisplaySimulatorState.h"

#include <QSignalSpy>

#include <gtest/gtest.h>
#include <numeric>

namespace orvim {
namespace {

using Type = DisplaySimulatorType;
using Mode = DisplaySimulatorColorMode;
using Special = DisplaySimulatorSpecialMode;

constexpr const char* banner = "    [Tonavelle]     - MIDI Synthesizer -";

std::vector<std::uint8_t> plainImage(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
{
    std::vector<std::uint8_t> image;
    for (int i = 0; i < 64 * 64; ++i)
        image.insert(image.end(), {red, green, blue});
    return image;
}

void moveEverything(DisplaySimulatorState& state)
{
    state.setLcdColor(1, 2, 3);
    state.setArbitraryImage(plainImage(9, 9, 9));
    state.setPart(3, "005:E.Piano 1", true, false, 4);
    state.setFace(1, 2);
    state.setFace(2, 3);
    state.setFace(3, 4);
    state.setFaceBlinking(true);
    state.addJapaneseText("上", 0);
    state.addJapaneseText("下", 1);
    state.applyBars(std::array{16, 3});
    state.setDotDisplay(std::vector(16, std::vector<bool>(16, true)));
    state.setIndicators(63, 0, 60, DisplaySimulatorSubDisplay::clip);
    state.setShowsUSB(false);
    state.setOscilloscopeTriggered(true);
    state.setKnobValue(40);
    state.setErrorKind(DisplaySimulatorErrorKind::dac);
}

TEST(DisplaySimulatorState, StartsWithTheDefaults)
{
    const DisplaySimulatorState state;
    const auto& fields = state.fields();
    EXPECT_EQ(fields.displayType, Type::initial);
    EXPECT_EQ(fields.colorMode, Mode::standard);
    EXPECT_EQ(fields.lcdColorSet, (DisplayColor{63.0 / 127, 63.0 / 127, 63.0 / 127, 1}));
    EXPECT_EQ(fields.foregroundRGB, 0x8EBCFC);
    EXPECT_EQ(fields.backgroundRGB, 0x213A60);
    EXPECT_EQ(fields.baseRGB, 0x000000);
    EXPECT_EQ(fields.oscilloscopeWaveRGB, 0xFFD700);
    EXPECT_EQ(fields.oscilloscopeUntriggeredRGB, 0x3D3300);
    EXPECT_EQ(fields.asciiText, banner);
    EXPECT_EQ(fields.asciiText.size(), 40u);
    EXPECT_EQ(fields.japaneseUpper, "");
    EXPECT_EQ(fields.japaneseLower, "");
    EXPECT_FALSE(fields.isJapaneseMode);
    EXPECT_TRUE(fields.showsUSB);
    EXPECT_EQ(fields.leftLevel, 20);
    EXPECT_EQ(fields.rightLevel, 53);
    EXPECT_EQ(fields.voiceCount, 24);
    EXPECT_EQ(fields.subDisplay, DisplaySimulatorSubDisplay::none);
    EXPECT_EQ(fields.barValues, (std::array{1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1}));
    EXPECT_FALSE(fields.isOscilloscopeTriggered);
    EXPECT_EQ(fields.specialMode, Special::none);
    EXPECT_EQ(fields.knobValue, 20);
    EXPECT_EQ(fields.errorKind, DisplaySimulatorErrorKind::vbusLow);
    EXPECT_EQ(fields.eyebrow + fields.eye + fields.steadyEye + fields.mouth + fields.blinkState, 0);
    EXPECT_FALSE(fields.isBlinking);
    EXPECT_TRUE(fields.showsDotDisplay);
    EXPECT_EQ(fields.arbitraryImageRGB, plainImage(0, 0, 0));
    EXPECT_EQ(fields.displayWindowScale, 1);
    EXPECT_FALSE(fields.displayWindowShowsBorder || fields.displayWindowAlwaysOnTop || fields.displayWindowIsVisible);
    EXPECT_EQ(fields.performanceMonitor, tonavelle::PerformanceMonitorState());
}

TEST(DisplaySimulatorState, StartsWithOneLitRowOfDots)
{
    const DisplaySimulatorState state;
    DotGrid expected{};
    expected[15].fill(true);
    EXPECT_EQ(state.fields().dotValues, expected);
    EXPECT_EQ(state.fields().dotBarValues, expected);
}

TEST(DisplaySimulatorState, RunsNoTimerAtStart)
{
    const DisplaySimulatorState state;
    EXPECT_FALSE(state.blinkTimer().isActive() || state.asciiTimer().isActive() || state.dotbarTimer().isActive());
}

TEST(DisplaySimulatorState, TellsOnlyOfRealChanges)
{
    DisplaySimulatorState state;
    QSignalSpy spy(&state, &DisplaySimulatorState::changed);
    state.setShowsUSB(true);
    state.resetIndicators();
    state.setColorMode(Mode::standard);
    state.fillArbitraryImage(0);
    state.setPart(0, "001:Piano 1", false, false, 0);
    EXPECT_EQ(spy.count(), 0);
    state.setShowsUSB(false);
    EXPECT_EQ(spy.count(), 1);
    state.setShowsUSB(false);
    EXPECT_EQ(spy.count(), 1);
}

// Screens

TEST(DisplaySimulatorState, DisplayTypesAboveSixAreInitial)
{
    DisplaySimulatorState state;
    for (const auto& [raw, type] : {std::pair{0u, Type::initial},
                                    {1u, Type::lipSync},
                                    {2u, Type::pianoRoll},
                                    {3u, Type::oscilloscope},
                                    {4u, Type::arbitraryImage},
                                    {5u, Type::performanceMonitor},
                                    {6u, Type::waterfall},
                                    {7u, Type::initial},
                                    {2u, Type::pianoRoll},
                                    {9u, Type::initial},
                                    {4'000'000'000u, Type::initial}}) {
        state.setDisplayType(raw);
        EXPECT_EQ(state.fields().displayType, type) << raw;
    }
}

TEST(DisplaySimulatorState, DisplayTypeLeavesTheOverlay)
{
    DisplaySimulatorState state;
    state.setSpecialMode(Special::error);
    state.setDisplayType(0);
    EXPECT_EQ(state.fields().specialMode, Special::none);
}

TEST(DisplaySimulatorState, WritingTheDisplayTypeKeepsOverlayAndBlinking)
{
    DisplaySimulatorState state;
    state.setFaceBlinking(true);
    state.setSpecialMode(Special::starting);
    state.writeDisplayType(Type::waterfall);
    EXPECT_EQ(state.fields().displayType, Type::waterfall);
    EXPECT_EQ(state.fields().specialMode, Special::starting);
    EXPECT_TRUE(state.fields().isBlinking);
    EXPECT_TRUE(state.blinkTimer().isActive());
}

// Pictures

TEST(DisplaySimulatorState, PictureIsTakenAndShown)
{
    DisplaySimulatorState state;
    state.setSpecialMode(Special::knob);
    std::vector<std::uint8_t> image(12288);
    std::iota(image.begin(), image.end(), std::uint8_t{0});
    state.setArbitraryImage(image);
    EXPECT_EQ(state.fields().arbitraryImageRGB, image);
    EXPECT_EQ(state.fields().displayType, Type::arbitraryImage);
    EXPECT_EQ(state.fields().specialMode, Special::none);
}

TEST(DisplaySimulatorState, PictureOfAnotherLengthIsIgnored)
{
    DisplaySimulatorState state;
    const auto before = state.fields();
    for (const std::size_t count : {0u, 12287u, 12289u}) {
        state.setArbitraryImage(std::vector<std::uint8_t>(count, 7));
        EXPECT_EQ(state.fields(), before) << count;
    }
}

TEST(DisplaySimulatorState, FillingRepeatsTheThreeBytes)
{
    DisplaySimulatorState state;
    state.fillArbitraryImage(0x123456);
    EXPECT_EQ(state.fields().arbitraryImageRGB, plainImage(0x12, 0x34, 0x56));
}

// Resets

TEST(DisplaySimulatorState, ResetMessagesChooseTheColorModeByTheWholeName)
{
    const std::pair<const char*, Mode> expectations[] = {
        {"GM System ON", Mode::standard}, {"GM2 System ON", Mode::gm2},        {"GS Reset", Mode::gs},
        {"XG System ON", Mode::xg},       {"Tonavelle Reset", Mode::standard}, {"GS Reset ", Mode::standard},
        {"gs reset", Mode::standard},
    };
    for (const auto& [name, mode] : expectations) {
        DisplaySimulatorState state;
        state.setColorMode(Mode::user);
        state.resetForMessage(name);
        EXPECT_EQ(state.fields().colorMode, mode) << name;
        EXPECT_EQ(state.fields().asciiText, name);
    }
}

TEST(DisplaySimulatorState, ResetMessageResetsFaceAndMonitorAndKeepsScreenAndBlink)
{
    DisplaySimulatorState state;
    state.setFace(1, 3);
    state.setFace(2, 5);
    state.setFace(3, 8);
    state.setPart(0, "002:Piano 2", false, false, 1);
    state.setFaceBlinking(true);
    for (int i = 0; i < 5; ++i)
        state.blinkTick();
    state.setSpecialMode(Special::error);
    state.resetForMessage("GS Reset");
    const auto& fields = state.fields();
    EXPECT_EQ(fields.eyebrow + fields.steadyEye + fields.eye + fields.mouth, 0);
    EXPECT_EQ(fields.performanceMonitor, tonavelle::PerformanceMonitorState());
    EXPECT_EQ(fields.displayType, Type::lipSync);
    EXPECT_TRUE(fields.isBlinking);
    EXPECT_EQ(fields.blinkState, 5);
    EXPECT_TRUE(state.blinkTimer().isActive());
    EXPECT_EQ(fields.specialMode, Special::none);
}

TEST(DisplaySimulatorState, ResetMessageFillsThePictureWithTheBase)
{
    DisplaySimulatorState state;
    state.resetForMessage("GM2 System ON");
    EXPECT_EQ(state.fields().arbitraryImageRGB, plainImage(0x20, 0xDC, 0xE0));
    state.setArbitraryImage(plainImage(1, 2, 3));
    state.applyColor565(0x26FC, Mode::gm2, true);
    EXPECT_EQ(state.fields().arbitraryImageRGB, plainImage(1, 2, 3)) << "the base did not change";
    state.resetForMessage("GM2 System ON");
    EXPECT_EQ(state.fields().arbitraryImageRGB, plainImage(0x20, 0xDC, 0xE0));
}

TEST(DisplaySimulatorState, ResetMessageInJapaneseModeKeepsOnlyTheText)
{
    DisplaySimulatorState state;
    state.setFace(3, 8);
    state.addJapaneseText("こんにちは", 0);
    state.setSpecialMode(Special::knob);
    state.resetForMessage("XG System ON");
    const auto& fields = state.fields();
    EXPECT_EQ(fields.colorMode, Mode::xg);
    EXPECT_EQ(fields.baseRGB, 0x83DF1F);
    EXPECT_EQ(fields.mouth, 0);
    EXPECT_EQ(fields.asciiText, banner);
    EXPECT_TRUE(fields.isJapaneseMode);
    EXPECT_EQ(fields.japaneseUpper, "こんにちは");
    EXPECT_EQ(fields.specialMode, Special::knob);
    EXPECT_FALSE(state.asciiTimer().isActive());
}

TEST(DisplaySimulatorState, ResetAllRestoresEverythingButTheWindow)
{
    DisplaySimulatorState state;
    moveEverything(state);
    state.setWindowScale(3);
    state.setWindowShowsBorder(true);
    state.setWindowAlwaysOnTop(true);
    state.setWindowVisible(true);
    state.resetAll();

    auto expected = DisplaySimulatorState().fields();
    expected.showsDotDisplay = false;
    expected.displayWindowScale = 3;
    expected.displayWindowShowsBorder = true;
    expected.displayWindowAlwaysOnTop = true;
    expected.displayWindowIsVisible = true;
    EXPECT_EQ(state.fields(), expected);
    EXPECT_FALSE(state.blinkTimer().isActive() || state.asciiTimer().isActive() || state.dotbarTimer().isActive());
}

TEST(DisplaySimulatorState, ResetAllEndsTheTextTimer)
{
    DisplaySimulatorState state;
    state.setAsciiText("Hello");
    state.resetAll();
    EXPECT_EQ(state.fields().asciiText, banner);
    EXPECT_FALSE(state.asciiTimer().isActive());
}

TEST(DisplaySimulatorState, ResetIndicatorsKeepsColoursTextFaceAndPicture)
{
    DisplaySimulatorState state;
    moveEverything(state);
    const auto before = state.fields();
    state.resetIndicators();

    auto expected = before;
    const auto defaults = DisplaySimulatorState().fields();
    expected.barValues = defaults.barValues;
    expected.dotValues = defaults.dotValues;
    expected.dotBarValues = defaults.dotBarValues;
    expected.leftLevel = 20;
    expected.rightLevel = 53;
    expected.voiceCount = 24;
    expected.subDisplay = DisplaySimulatorSubDisplay::none;
    expected.showsUSB = true;
    expected.isOscilloscopeTriggered = false;
    expected.specialMode = Special::none;
    expected.knobValue = 20;
    expected.errorKind = DisplaySimulatorErrorKind::vbusLow;
    EXPECT_EQ(state.fields(), expected);
    EXPECT_EQ(expected.colorMode, Mode::user);
    EXPECT_EQ(expected.displayType, Type::lipSync);
}

// By hand

TEST(DisplaySimulatorState, IndicatorsAreRoundedLimitedAndLeaveTheOverlay)
{
    DisplaySimulatorState state;
    state.setSpecialMode(Special::firmwareUpdate);
    state.setIndicators(12.5, 12.4, 30, DisplaySimulatorSubDisplay::over);
    EXPECT_EQ(state.fields().leftLevel, 13);
    EXPECT_EQ(state.fields().rightLevel, 12);
    EXPECT_EQ(state.fields().voiceCount, 30);
    EXPECT_EQ(state.fields().subDisplay, DisplaySimulatorSubDisplay::over);
    EXPECT_EQ(state.fields().specialMode, Special::none);
    state.setIndicators(-1, 64, -1, DisplaySimulatorSubDisplay::none);
    EXPECT_EQ(state.fields().leftLevel, 0);
    EXPECT_EQ(state.fields().rightLevel, 63);
    EXPECT_EQ(state.fields().voiceCount, 0);
    state.setIndicators(1e30, std::nan(""), 61, DisplaySimulatorSubDisplay::none);
    EXPECT_EQ(state.fields().leftLevel, 63);
    EXPECT_EQ(state.fields().rightLevel, 0);
    EXPECT_EQ(state.fields().voiceCount, 60);
}

TEST(DisplaySimulatorState, KnobValueShowsTheKnob)
{
    DisplaySimulatorState state;
    state.setKnobValue(33);
    EXPECT_EQ(state.fields().knobValue, 33);
    EXPECT_EQ(state.fields().specialMode, Special::knob);
    state.setKnobValue(41);
    EXPECT_EQ(state.fields().knobValue, 40);
    state.setKnobValue(-1);
    EXPECT_EQ(state.fields().knobValue, 0);
}

TEST(DisplaySimulatorState, KnobYieldsToAMessageOfAnotherPage)
{
    DisplaySimulatorState state;
    state.setKnobValue(5);
    state.showLetters("Hello");
    EXPECT_EQ(state.fields().specialMode, Special::none);
    EXPECT_EQ(state.fields().knobValue, 5);
}

TEST(DisplaySimulatorState, LeavingTheOverlayKeepsTheIndicators)
{
    DisplaySimulatorState state;
    state.setIndicators(1, 2, 3, DisplaySimulatorSubDisplay::clip);
    const auto before = state.fields();
    state.setSpecialMode(Special::error);
    state.setSpecialMode(Special::none);
    EXPECT_EQ(state.fields(), before);
}

TEST(DisplaySimulatorState, WindowScaleStaysBetweenOneAndThree)
{
    DisplaySimulatorState state;
    for (const auto& [asked, kept] : {std::pair{2, 2}, {3, 3}, {4, 3}, {1, 1}, {0, 1}, {-7, 1}}) {
        state.setWindowScale(asked);
        EXPECT_EQ(state.fields().displayWindowScale, kept) << asked;
    }
}

// The performance monitor

TEST(DisplaySimulatorState, PartOutsideTheListChangesNothing)
{
    DisplaySimulatorState state;
    QSignalSpy spy(&state, &DisplaySimulatorState::changed);
    state.setPart(16, "x", true, true, 1);
    state.setPart(-1, "x", true, true, 1);
    EXPECT_EQ(spy.count(), 0);
    EXPECT_EQ(state.fields().performanceMonitor, tonavelle::PerformanceMonitorState());
}

TEST(DisplaySimulatorState, PartTakesItsValuesWithASevenBitProgram)
{
    DisplaySimulatorState state;
    QSignalSpy spy(&state, &DisplaySimulatorState::changed);
    state.setPart(2, "073:My Flute", true, false, 200);
    EXPECT_EQ(spy.count(), 1);
    const auto& part = state.fields().performanceMonitor.parts[2];
    EXPECT_EQ(part.name, "073:My Flute");
    EXPECT_TRUE(part.isUserBank);
    EXPECT_FALSE(part.isDrum);
    EXPECT_EQ(part.program, 72);
}

TEST(DisplaySimulatorState, RenamingAUserToneRenamesItsParts)
{
    DisplaySimulatorState state;
    state.setPart(2, "008:Old", true, false, 7);
    state.setPart(5, "008:Old", true, false, 7);
    QSignalSpy spy(&state, &DisplaySimulatorState::changed);
    EXPECT_FALSE(state.updateUserPartNames(false, 8, "009:New"));
    EXPECT_EQ(spy.count(), 0);
    EXPECT_TRUE(state.updateUserPartNames(false, 7, "008:New"));
    EXPECT_EQ(spy.count(), 1);
    EXPECT_EQ(state.fields().performanceMonitor.parts[2].name, "008:New");
    EXPECT_EQ(state.fields().performanceMonitor.parts[5].name, "008:New");
    EXPECT_EQ(state.fields().performanceMonitor.parts[3].name, "001:Piano 1");
}

} // namespace
} // namespace orvim
