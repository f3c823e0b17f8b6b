#include "DisplaySimulatorState.h"

#include <QElapsedTimer>
#include <QTest>

#include <gtest/gtest.h>

namespace orvim {
namespace {

using Type = DisplaySimulatorType;
using Special = DisplaySimulatorSpecialMode;

void tickBlink(DisplaySimulatorState& state, int count)
{
    for (int i = 0; i < count; ++i)
        state.blinkTick();
}

TEST(DisplaySimulatorFace, PartsAreLimitedToTheirPictures)
{
    DisplaySimulatorState state;
    for (const auto& [value, eyebrow, eye, mouth] :
         {std::array{-1, 0, 0, 0}, {0, 0, 0, 0}, {2, 2, 2, 2}, {4, 3, 4, 4}, {7, 3, 6, 7}, {9, 3, 6, 8}}) {
        state.setFace(1, value);
        state.setFace(2, value);
        state.setFace(3, value);
        EXPECT_EQ(state.fields().eyebrow, eyebrow) << value;
        EXPECT_EQ(state.fields().steadyEye, eye) << value;
        EXPECT_EQ(state.fields().eye, eye) << value;
        EXPECT_EQ(state.fields().mouth, mouth) << value;
    }
    state.setFace(99, 5);
    EXPECT_EQ(state.fields().mouth, 5) << "any other part is the mouth";
}

TEST(DisplaySimulatorFace, EveryPartShowsTheFaceAndLeavesTheOverlay)
{
    for (const int part : {0, 1, 2, 3}) {
        DisplaySimulatorState state;
        state.setSpecialMode(Special::error);
        state.setFace(part, 1);
        EXPECT_EQ(state.fields().displayType, Type::lipSync) << part;
        EXPECT_EQ(state.fields().specialMode, Special::none) << part;
    }
}

TEST(DisplaySimulatorFace, PartZeroResetsTheFace)
{
    DisplaySimulatorState state;
    state.setFace(1, 3);
    state.setFace(2, 5);
    state.setFace(3, 8);
    state.setFaceBlinking(true);
    state.setFace(0, 7);
    const auto& fields = state.fields();
    EXPECT_EQ(fields.eyebrow + fields.eye + fields.steadyEye + fields.mouth, 0);
    EXPECT_FALSE(fields.isBlinking);
    EXPECT_FALSE(state.blinkTimer().isActive());
}

TEST(DisplaySimulatorFace, ResettingTheFaceKeepsScreenAndOverlay)
{
    DisplaySimulatorState state;
    state.setFace(1, 3);
    state.setDisplayType(2);
    state.setSpecialMode(Special::knob);
    state.resetFace();
    EXPECT_EQ(state.fields().eyebrow, 0);
    EXPECT_EQ(state.fields().displayType, Type::pianoRoll);
    EXPECT_EQ(state.fields().specialMode, Special::knob);
}

TEST(DisplaySimulatorFace, ChoosingAnEyeRestartsTheBlinkCycle)
{
    DisplaySimulatorState state;
    state.setFaceBlinking(true);
    tickBlink(state, 10);
    state.setFace(2, 4);
    EXPECT_EQ(state.fields().blinkState, 0);
    EXPECT_EQ(state.fields().eye, 4);
    EXPECT_TRUE(state.fields().isBlinking);
    EXPECT_TRUE(state.blinkTimer().isActive());
}

TEST(DisplaySimulatorFace, BlinkingOnShowsTheFaceAndKeepsTheOverlay)
{
    DisplaySimulatorState state;
    state.setSpecialMode(Special::starting);
    state.setFaceBlinking(true);
    EXPECT_TRUE(state.fields().isBlinking);
    EXPECT_EQ(state.fields().displayType, Type::lipSync);
    EXPECT_EQ(state.fields().blinkState, 0);
    EXPECT_TRUE(state.blinkTimer().isActive());
    EXPECT_EQ(state.fields().specialMode, Special::starting);
}

TEST(DisplaySimulatorFace, BlinkingOnAgainBeginsTheCycleAnew)
{
    DisplaySimulatorState state;
    state.setFaceBlinking(true);
    tickBlink(state, 20);
    state.setFaceBlinking(true);
    EXPECT_EQ(state.fields().blinkState, 0);
}

TEST(DisplaySimulatorFace, BlinkingOffRestoresTheChosenEye)
{
    DisplaySimulatorState state;
    state.setFace(2, 5);
    state.setFaceBlinking(true);
    tickBlink(state, 2);
    ASSERT_EQ(state.fields().eye, 1);
    state.setDisplayType(1);
    state.setFaceBlinking(false);
    EXPECT_FALSE(state.fields().isBlinking);
    EXPECT_EQ(state.fields().displayType, Type::lipSync);
    EXPECT_EQ(state.fields().blinkState, 0);
    EXPECT_EQ(state.fields().eye, 5);
    EXPECT_FALSE(state.blinkTimer().isActive());
}

TEST(DisplaySimulatorFace, BlinkingOffShowsTheFaceFromAnyScreen)
{
    DisplaySimulatorState state;
    state.setDisplayType(4);
    state.setFaceBlinking(false);
    EXPECT_EQ(state.fields().displayType, Type::lipSync);
}

TEST(DisplaySimulatorFace, OneCycleBlinksOnceAndThenTwice)
{
    DisplaySimulatorState state;
    state.setFaceBlinking(true);
    std::string eyes;
    for (int i = 0; i < 72; ++i) {
        EXPECT_EQ(state.fields().blinkState, i);
        state.blinkTick();
        eyes += std::to_string(state.fields().eye);
    }
    EXPECT_EQ(eyes, "012000000000000000000000000000000001"
                    "201200000000000000000000000000000000");
    EXPECT_EQ(state.fields().blinkState, 0);
    state.blinkTick();
    state.blinkTick();
    EXPECT_EQ(state.fields().eye, 1) << "the second cycle begins like the first";
}

TEST(DisplaySimulatorFace, TicksBetweenTheBlinksLeaveTheEye)
{
    DisplaySimulatorState state;
    state.setFaceBlinking(true);
    tickBlink(state, 4);
    state.resetForMessage("GS Reset");
    state.setFace(1, 1);
    const int eye = state.fields().eye;
    tickBlink(state, 30);
    EXPECT_EQ(state.fields().blinkState, 34);
    EXPECT_EQ(state.fields().eye, eye);
}

TEST(DisplaySimulatorFace, AnotherScreenEndsTheBlinkingWithoutRestoringTheEye)
{
    DisplaySimulatorState state;
    state.setFace(2, 5);
    state.setFaceBlinking(true);
    tickBlink(state, 3);
    ASSERT_EQ(state.fields().eye, 2);
    state.setDisplayType(2);
    EXPECT_FALSE(state.blinkTimer().isActive());
    EXPECT_FALSE(state.fields().isBlinking);
    EXPECT_EQ(state.fields().blinkState, 0);
    EXPECT_EQ(state.fields().eye, 2);
    state.setDisplayType(1);
    EXPECT_FALSE(state.fields().isBlinking);
    EXPECT_FALSE(state.blinkTimer().isActive());
}

TEST(DisplaySimulatorFace, TheFaceScreenWhileBlinkingKeepsTheCycle)
{
    DisplaySimulatorState state;
    state.setFaceBlinking(true);
    tickBlink(state, 12);
    state.setDisplayType(1);
    EXPECT_EQ(state.fields().blinkState, 12);
    EXPECT_TRUE(state.fields().isBlinking);
    EXPECT_TRUE(state.blinkTimer().isActive());
}

TEST(DisplaySimulatorFace, TheFaceScreenRestartsTheTimerOfABlinkingFace)
{
    DisplaySimulatorState state;
    state.setFaceBlinking(true);
    QTest::qWait(20);
    const int before = state.blinkTimer().remainingTime();
    state.setDisplayType(1);
    EXPECT_GT(state.blinkTimer().remainingTime(), before);
}

TEST(DisplaySimulatorFace, ATickOnAnotherScreenEndsTheBlinking)
{
    DisplaySimulatorState state;
    state.setFace(2, 6);
    state.setFaceBlinking(true);
    tickBlink(state, 3);
    state.writeDisplayType(Type::waterfall);
    state.blinkTick();
    EXPECT_FALSE(state.fields().isBlinking);
    EXPECT_FALSE(state.blinkTimer().isActive());
    EXPECT_EQ(state.fields().blinkState, 0);
    EXPECT_EQ(state.fields().eye, 2);
}

TEST(DisplaySimulatorFace, ATickWithoutBlinkingEndsTheTimer)
{
    DisplaySimulatorState state;
    state.setDisplayType(1);
    state.startBlinkTimer();
    state.blinkTick();
    EXPECT_FALSE(state.blinkTimer().isActive());
    EXPECT_EQ(state.fields().blinkState, 0);
}

TEST(DisplaySimulatorFace, TheBlinkTimerIsPrecise)
{
    const DisplaySimulatorState state;
    EXPECT_EQ(state.blinkTimer().interval(), 70);
    EXPECT_EQ(state.blinkTimer().timerType(), Qt::PreciseTimer);
}

TEST(DisplaySimulatorFace, TheBlinkTimerDeliversItsTicksInRealTime)
{
    DisplaySimulatorState state;
    QElapsedTimer clock;
    clock.start();
    state.setFaceBlinking(true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return state.fields().blinkState == 10; }, 5000));
    EXPECT_GE(clock.elapsed(), 690);
}

} // namespace
} // namespace orvim
