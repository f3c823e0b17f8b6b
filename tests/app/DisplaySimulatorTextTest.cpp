#include "DisplaySimulatorState.h"

#include <QElapsedTimer>
#include <QTest>

#include <gtest/gtest.h>

namespace orvim {
namespace {

using Special = DisplaySimulatorSpecialMode;

constexpr const char* banner = "    [Tonavelle]     - MIDI Synthesizer -";

void tickAscii(DisplaySimulatorState& state, int count)
{
    for (int i = 0; i < count; ++i)
        state.asciiTick();
}

// ASCII

TEST(DisplaySimulatorText, AsciiTextStandsForSeventeenTicks)
{
    DisplaySimulatorState state;
    state.setSpecialMode(Special::error);
    state.setAsciiText("Hello");
    EXPECT_EQ(state.fields().specialMode, Special::none);
    EXPECT_TRUE(state.asciiTimer().isActive());
    tickAscii(state, 16);
    EXPECT_EQ(state.fields().asciiText, "Hello");
    tickAscii(state, 1);
    EXPECT_EQ(state.fields().asciiText, banner);
    EXPECT_FALSE(state.asciiTimer().isActive());
}

TEST(DisplaySimulatorText, AnotherTextRestartsTheCount)
{
    DisplaySimulatorState state;
    state.setAsciiText("one");
    tickAscii(state, 16);
    state.setAsciiText("two");
    tickAscii(state, 16);
    EXPECT_EQ(state.fields().asciiText, "two");
    tickAscii(state, 1);
    EXPECT_EQ(state.fields().asciiText, banner);
}

TEST(DisplaySimulatorText, TheCountBeginsAnewAfterTheBannerReturned)
{
    DisplaySimulatorState state;
    state.setAsciiText("one");
    tickAscii(state, 17);
    state.setAsciiText("two");
    tickAscii(state, 16);
    EXPECT_EQ(state.fields().asciiText, "two");
}

TEST(DisplaySimulatorText, AsciiTextIsIgnoredInJapaneseMode)
{
    DisplaySimulatorState state;
    state.setJapaneseMode(true);
    state.setSpecialMode(Special::knob);
    state.setAsciiText("Hello");
    state.restartAsciiTimer();
    EXPECT_EQ(state.fields().asciiText, banner);
    EXPECT_EQ(state.fields().specialMode, Special::knob);
    EXPECT_FALSE(state.asciiTimer().isActive());
}

TEST(DisplaySimulatorText, ATickInJapaneseModeEndsTheTimerAndKeepsTheText)
{
    DisplaySimulatorState state;
    state.setAsciiText("Hello");
    state.addJapaneseText("あ", 0);
    ASSERT_TRUE(state.asciiTimer().isActive());
    state.asciiTick();
    EXPECT_FALSE(state.asciiTimer().isActive());
    EXPECT_EQ(state.fields().asciiText, "Hello");
}

TEST(DisplaySimulatorText, LettersAreCutToThirtyTwoCharacters)
{
    DisplaySimulatorState state;
    state.showLetters("12345678901234567890123456789012345678901234567890");
    EXPECT_EQ(state.fields().asciiText, "12345678901234567890123456789012");
    state.showLetters("");
    EXPECT_EQ(state.fields().asciiText, "");
}

TEST(DisplaySimulatorText, LettersAreCountedAsCharactersAndNotAsBytes)
{
    DisplaySimulatorState state;
    state.showLetters("あああああああああああああああああああああああああああああああいう");
    EXPECT_EQ(state.fields().asciiText, "あああああああああああああああああああああああああああああああい");
}

TEST(DisplaySimulatorText, LettersLeaveJapaneseModeAndOverlayAndReturnToTheBanner)
{
    DisplaySimulatorState state;
    state.addJapaneseText("あ", 0);
    state.setSpecialMode(Special::starting);
    state.showLetters("Hi");
    EXPECT_FALSE(state.fields().isJapaneseMode);
    EXPECT_EQ(state.fields().japaneseUpper, "あ");
    EXPECT_EQ(state.fields().specialMode, Special::none);
    tickAscii(state, 17);
    EXPECT_EQ(state.fields().asciiText, banner);
}

TEST(DisplaySimulatorText, TheTextTimerIsPreciseAndRestartsItsPeriod)
{
    DisplaySimulatorState state;
    EXPECT_EQ(state.asciiTimer().interval(), 100);
    EXPECT_EQ(state.asciiTimer().timerType(), Qt::PreciseTimer);
    state.setAsciiText("one");
    QTest::qWait(30);
    const int before = state.asciiTimer().remainingTime();
    state.restartAsciiTimer();
    EXPECT_GT(state.asciiTimer().remainingTime(), before);
}

TEST(DisplaySimulatorText, TheTextTimerDeliversSeventeenTicksInRealTime)
{
    DisplaySimulatorState state;
    QElapsedTimer clock;
    clock.start();
    state.setAsciiText("Hello");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !state.asciiTimer().isActive(); }, 5000));
    EXPECT_GE(clock.elapsed(), 1690);
    EXPECT_EQ(state.fields().asciiText, banner);
}

// Japanese

TEST(DisplaySimulatorText, JapaneseModeOnEndsTheTextTimer)
{
    DisplaySimulatorState state;
    state.setAsciiText("Hello");
    state.setSpecialMode(Special::knob);
    state.setJapaneseMode(true);
    EXPECT_TRUE(state.fields().isJapaneseMode);
    EXPECT_FALSE(state.asciiTimer().isActive());
    EXPECT_EQ(state.fields().specialMode, Special::knob);
}

TEST(DisplaySimulatorText, JapaneseModeOffEmptiesBothRows)
{
    DisplaySimulatorState state;
    state.addJapaneseText("上", 0);
    state.addJapaneseText("下", 1);
    state.setJapaneseMode(false);
    EXPECT_FALSE(state.fields().isJapaneseMode);
    EXPECT_EQ(state.fields().japaneseUpper, "");
    EXPECT_EQ(state.fields().japaneseLower, "");
}

TEST(DisplaySimulatorText, JapaneseTextIsAppendedToItsRow)
{
    DisplaySimulatorState state;
    state.setSpecialMode(Special::error);
    state.addJapaneseText("上", 0);
    EXPECT_TRUE(state.fields().isJapaneseMode);
    EXPECT_EQ(state.fields().specialMode, Special::none);
    state.addJapaneseText("の段", 7);
    state.addJapaneseText("下", 1);
    state.addJapaneseText("段", 1);
    EXPECT_EQ(state.fields().japaneseUpper, "上の段");
    EXPECT_EQ(state.fields().japaneseLower, "下段");
}

TEST(DisplaySimulatorText, DeletingEmptiesTheNamedRowsAndKeepsTheOverlay)
{
    struct Row {
        int which;
        const char* upper;
        const char* lower;
    };
    for (const auto& row : {Row{0, "", ""}, Row{1, "", "下"}, Row{2, "上", ""}, Row{9, "上", ""}, Row{-1, "上", ""}}) {
        DisplaySimulatorState state;
        state.addJapaneseText("上", 0);
        state.addJapaneseText("下", 1);
        state.setSpecialMode(Special::knob);
        state.deleteJapaneseText(row.which);
        EXPECT_TRUE(state.fields().isJapaneseMode);
        EXPECT_EQ(state.fields().japaneseUpper, row.upper) << row.which;
        EXPECT_EQ(state.fields().japaneseLower, row.lower) << row.which;
        EXPECT_EQ(state.fields().specialMode, Special::knob);
    }
}

TEST(DisplaySimulatorText, DeletingEntersJapaneseMode)
{
    DisplaySimulatorState state;
    state.deleteJapaneseText(2);
    EXPECT_TRUE(state.fields().isJapaneseMode);
}

TEST(DisplaySimulatorText, LyricCommandsAddAndEmptyRows)
{
    struct Row {
        int command;
        const char* upper;
        const char* lower;
        Special overlay;
    };
    for (const auto& row :
         {Row{0, "上x", "下", Special::none}, Row{1, "上", "下x", Special::none}, Row{2, "", "", Special::knob},
          Row{3, "", "下", Special::knob}, Row{4, "上", "", Special::knob}, Row{5, "上", "", Special::knob},
          Row{-1, "上", "", Special::knob}}) {
        DisplaySimulatorState state;
        state.addJapaneseText("上", 0);
        state.addJapaneseText("下", 1);
        state.setSpecialMode(Special::knob);
        state.applyLyricCommand(row.command, "x");
        EXPECT_TRUE(state.fields().isJapaneseMode);
        EXPECT_EQ(state.fields().japaneseUpper, row.upper) << row.command;
        EXPECT_EQ(state.fields().japaneseLower, row.lower) << row.command;
        EXPECT_EQ(state.fields().specialMode, row.overlay) << row.command;
    }
}

TEST(DisplaySimulatorText, EveryLyricCommandEntersJapaneseMode)
{
    for (int command = 0; command <= 4; ++command) {
        DisplaySimulatorState state;
        state.applyLyricCommand(command, "");
        EXPECT_TRUE(state.fields().isJapaneseMode) << command;
    }
}

} // namespace
} // namespace orvim
