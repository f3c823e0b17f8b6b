#include "controls/TickSnappingSlider.h"

#include "support/Wheel.h"

#include <QAccessible>
#include <QApplication>
#include <QMouseEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <cmath>
#include <gtest/gtest.h>

namespace orvim {
namespace {

/// A slider in a window of its own, with what it told so far.
struct Shown {
    explicit Shown(Qt::Orientation orientation = Qt::Horizontal, SliderRange range = {0, 127, 1})
        : slider(orientation, range.lower, range.upper, range.step)
    {
        slider.resize(orientation == Qt::Horizontal ? QSize(290, 24) : QSize(24, 290));
        slider.show();
        slider.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&slider));
    }

    QPoint knob() const { return slider.knobRect().center().toPoint(); }
    std::vector<double> values() const
    {
        std::vector<double> all;
        for (const auto& arguments : valueSpy)
            all.push_back(arguments[0].toDouble());
        return all;
    }
    std::vector<bool> editing() const
    {
        std::vector<bool> all;
        for (const auto& arguments : editingSpy)
            all.push_back(arguments[0].toBool());
        return all;
    }

    TickSnappingSlider slider;
    QSignalSpy valueSpy{&slider, &TickSnappingSlider::valueChanged};
    QSignalSpy editingSpy{&slider, &TickSnappingSlider::onEditingChanged};
};

TEST(TickSnappingSlider, AValueOfTheProgramOffTheRangeGivesWayToTheEndThatTheUserChooses)
{
    Shown shown(Qt::Horizontal, {0, 12, 1});
    shown.slider.setValue(100);
    EXPECT_EQ(shown.slider.value(), 12);
    QTest::keyClick(&shown.slider, Qt::Key_End);
    EXPECT_EQ(shown.values(), std::vector<double>{12});
    QTest::keyClick(&shown.slider, Qt::Key_End);
    EXPECT_EQ(shown.values(), std::vector<double>{12});
}

TEST(TickSnappingSlider, AGreyedOneIsNotMovedThroughAccessibilityEither)
{
    Shown shown;
    auto* const value = QAccessible::queryAccessibleInterface(&shown.slider)->valueInterface();
    shown.slider.setEnabled(false);
    value->setCurrentValue(40);
    EXPECT_EQ(shown.slider.value(), 0);
    EXPECT_TRUE(shown.values().empty());
    shown.slider.setEnabled(true);
    value->setCurrentValue(40);
    EXPECT_EQ(shown.values(), std::vector<double>{40});
}

TEST(TickSnappingSlider, TakesValuesOfTheProgramOnTheStepAndSilently)
{
    Shown shown(Qt::Horizontal, {1, 12, 4});
    EXPECT_EQ(shown.slider.value(), 1);
    shown.slider.setValue(10);
    EXPECT_EQ(shown.slider.value(), 9);
    shown.slider.setValue(11.5);
    EXPECT_EQ(shown.slider.value(), 12);
    shown.slider.setRange(1, 6);
    EXPECT_EQ(shown.slider.value(), 5);
    EXPECT_EQ(shown.valueSpy.count(), 0);
}

TEST(TickSnappingSlider, APressFarRightOfTheKnobMovesByOneStepAndDoesNotRepeat)
{
    Shown shown;
    shown.slider.setValue(20);
    const QPoint farRight(280, 12);
    QTest::mousePress(&shown.slider, Qt::LeftButton, {}, farRight);
    QTest::qWait(700);
    EXPECT_EQ(shown.values(), (std::vector<double>{21}));
    QTest::mouseMove(&shown.slider, farRight - QPoint(100, 0));
    QTest::mouseRelease(&shown.slider, Qt::LeftButton, {}, farRight);
    EXPECT_EQ(shown.values(), (std::vector<double>{21}));
    EXPECT_TRUE(shown.editing().empty());
}

TEST(TickSnappingSlider, APressLeftOfTheKnobMovesOneStepDown)
{
    Shown shown;
    shown.slider.setValue(100);
    QTest::mouseClick(&shown.slider, Qt::LeftButton, {}, {5, 12});
    EXPECT_EQ(shown.values(), (std::vector<double>{99}));
}

TEST(TickSnappingSlider, EachPressOfADoubleClickIsAStep)
{
    Shown shown;
    shown.slider.setValue(20);
    QTest::mouseClick(&shown.slider, Qt::LeftButton, {}, {280, 12});
    QTest::mouseDClick(&shown.slider, Qt::LeftButton, {}, {280, 12});
    EXPECT_EQ(shown.values(), (std::vector<double>{21, 22}));
}

TEST(TickSnappingSlider, ATrackPressStepsByTheStepAndStopsAtTheEnds)
{
    Shown shown(Qt::Horizontal, {1, 12, 4});
    for (const double expected : {5, 9, 12, 12}) {
        QTest::mouseClick(&shown.slider, Qt::LeftButton, {}, {289, 1});
        EXPECT_EQ(shown.slider.value(), expected);
    }
    QTest::mouseClick(&shown.slider, Qt::LeftButton, {}, {3, 12});
    EXPECT_EQ(shown.slider.value(), 9) << "8 lies nearest to 9 on the grid";
}

TEST(TickSnappingSlider, APressExactlyOnTheKnobsPlaceIsAStepDown)
{
    Shown shown(Qt::Horizontal, {0, 100, 1});
    // Taller than the knob's reach, so that a press on its place can miss it.
    shown.slider.setMinimumHeight(100);
    shown.slider.resize(200, 100);
    shown.slider.setValue(50);
    QTest::mouseClick(&shown.slider, Qt::LeftButton, {}, {100, 2});
    EXPECT_EQ(shown.slider.value(), 49);
    QTest::mouseClick(&shown.slider, Qt::LeftButton, {}, {99, 2});
    EXPECT_EQ(shown.slider.value(), 50) << "99 lies right of 98";
}

TEST(TickSnappingSlider, APressThreePixelsBesideTheKnobStartsADrag)
{
    Shown shown;
    shown.slider.setValue(50);
    const QPoint beside(static_cast<int>(std::ceil(shown.slider.knobRect().right())) + 2, 12);
    QTest::mousePress(&shown.slider, Qt::LeftButton, {}, beside);
    EXPECT_EQ(shown.editing(), (std::vector<bool>{true}));
    EXPECT_TRUE(shown.values().empty()) << "the knob stays where it was taken";
    QTest::mouseRelease(&shown.slider, Qt::LeftButton, {}, beside);
    EXPECT_EQ(shown.editing(), (std::vector<bool>{true, false}));
    EXPECT_EQ(shown.slider.value(), 50);
}

TEST(TickSnappingSlider, APressSixPixelsBesideTheKnobIsAStep)
{
    Shown shown;
    shown.slider.setValue(50);
    const QPoint beside(static_cast<int>(std::ceil(shown.slider.knobRect().right())) + 6, 12);
    QTest::mouseClick(&shown.slider, Qt::LeftButton, {}, beside);
    EXPECT_TRUE(shown.editing().empty());
    EXPECT_EQ(shown.slider.value(), 51);
}

TEST(TickSnappingSlider, ADragTellsOfEachStepOnceAndEndsAtTheEnds)
{
    Shown shown(Qt::Horizontal, {0, 4, 1});
    const auto start = shown.knob();
    QTest::mousePress(&shown.slider, Qt::LeftButton, {}, start);
    for (int x = 0; x <= 400; x += 10)
        QTest::mouseMove(&shown.slider, start + QPoint(x, 40));
    EXPECT_EQ(shown.values(), (std::vector<double>{1, 2, 3, 4}));
    for (int x = 400; x >= -50; x -= 10)
        QTest::mouseMove(&shown.slider, start + QPoint(x, 0));
    QTest::mouseRelease(&shown.slider, Qt::LeftButton, {}, start);
    EXPECT_EQ(shown.values(), (std::vector<double>{1, 2, 3, 4, 3, 2, 1, 0}));
    EXPECT_EQ(shown.editing(), (std::vector<bool>{true, false}));
    QTest::mouseMove(&shown.slider, start + QPoint(200, 0));
    EXPECT_EQ(shown.slider.value(), 0) << "the drag is over";
}

TEST(TickSnappingSlider, ADragReachesEveryValueOfItsRange)
{
    Shown shown;
    const auto start = shown.knob();
    QTest::mousePress(&shown.slider, Qt::LeftButton, {}, start);
    for (int x = 1; x <= 290; ++x)
        QTest::mouseMove(&shown.slider, start + QPoint(x, 0));
    ASSERT_EQ(shown.values().size(), 127u);
    EXPECT_EQ(shown.values().back(), 127);
}

TEST(TickSnappingSlider, ADragOutlivesTheFocusAndEndsWhenTheSliderIsHidden)
{
    Shown shown;
    const auto start = shown.knob();
    QTest::mousePress(&shown.slider, Qt::LeftButton, {}, start);
    shown.slider.clearFocus();
    QTest::mouseMove(&shown.slider, start + QPoint(27, 0));
    EXPECT_EQ(shown.slider.value(), 13);
    EXPECT_EQ(shown.editing(), (std::vector<bool>{true}));
    shown.slider.hide();
    EXPECT_EQ(shown.editing(), (std::vector<bool>{true, false}));
    QTest::mouseRelease(&shown.slider, Qt::LeftButton, {}, start);
    EXPECT_EQ(shown.editing(), (std::vector<bool>{true, false}));
}

TEST(TickSnappingSlider, ADragWhoseReleaseWasLostIsOver)
{
    Shown shown;
    const auto start = shown.knob();
    QTest::mousePress(&shown.slider, Qt::LeftButton, {}, start);
    QTest::mouseMove(&shown.slider, start + QPoint(27, 0));
    const auto moveTo = [&shown](QPoint point, Qt::MouseButtons buttons) {
        QMouseEvent event(QEvent::MouseMove, point, shown.slider.mapToGlobal(point), Qt::NoButton, buttons,
                          Qt::NoModifier);
        QApplication::sendEvent(&shown.slider, &event);
    };
    moveTo(start + QPoint(80, 0), Qt::NoButton);
    EXPECT_EQ(shown.slider.value(), 13);
    EXPECT_EQ(shown.editing(), (std::vector<bool>{true, false}));
    moveTo(start + QPoint(90, 0), Qt::LeftButton);
    EXPECT_EQ(shown.slider.value(), 13) << "the button was pressed elsewhere";
    EXPECT_TRUE(shown.slider.hasMouseTracking()) << "else no move without a button would come";
    QTest::mouseRelease(&shown.slider, Qt::LeftButton, {}, start);
    EXPECT_EQ(shown.editing(), (std::vector<bool>{true, false}));
}

TEST(TickSnappingSlider, WithoutAStepATrackPressDoesNothingAndADragIsSmooth)
{
    for (const double step : {0.0, -1.0}) {
        Shown shown(Qt::Horizontal, {0, 1, step});
        QTest::mouseClick(&shown.slider, Qt::LeftButton, {}, {280, 12});
        EXPECT_EQ(shown.slider.value(), 0);
        EXPECT_TRUE(shown.editing().empty());
        const auto start = shown.knob();
        QTest::mousePress(&shown.slider, Qt::LeftButton, {}, start);
        QTest::mouseMove(&shown.slider, start + QPoint(27, 0));
        EXPECT_NEAR(shown.slider.value(), 0.1, 1e-9);
    }
}

TEST(TickSnappingSlider, OtherButtonsDoNothing)
{
    Shown shown;
    QTest::mouseClick(&shown.slider, Qt::RightButton, {}, {280, 12});
    QTest::mousePress(&shown.slider, Qt::MiddleButton, {}, shown.knob());
    EXPECT_TRUE(shown.values().empty());
    EXPECT_TRUE(shown.editing().empty());
}

TEST(TickSnappingSlider, UprightItGrowsUpwards)
{
    Shown shown(Qt::Vertical, {0, 16, 1});
    shown.slider.setValue(8);
    EXPECT_EQ(shown.knob().y(), 145);
    QTest::mouseClick(&shown.slider, Qt::LeftButton, {}, {12, 5});
    EXPECT_EQ(shown.slider.value(), 9);
    QTest::mouseClick(&shown.slider, Qt::LeftButton, {}, {12, 280});
    QTest::mouseClick(&shown.slider, Qt::LeftButton, {}, {12, 280});
    EXPECT_EQ(shown.slider.value(), 7);
    const auto start = shown.knob();
    QTest::mousePress(&shown.slider, Qt::LeftButton, {}, start);
    QTest::mouseMove(&shown.slider, start - QPoint(0, 300));
    EXPECT_EQ(shown.slider.value(), 16);
}

TEST(TickSnappingSlider, KeysMoveByStepsPagesAndEnds)
{
    Shown shown;
    const std::pair<Qt::Key, double> presses[] = {
        {Qt::Key_Right, 1}, {Qt::Key_Up, 2},         {Qt::Key_PageUp, 12}, {Qt::Key_Left, 11},    {Qt::Key_Down, 10},
        {Qt::Key_End, 127}, {Qt::Key_PageDown, 117}, {Qt::Key_Home, 0},    {Qt::Key_PageDown, 0},
    };
    for (const auto& [key, expected] : presses) {
        QTest::keyClick(&shown.slider, key);
        EXPECT_EQ(shown.slider.value(), expected) << key;
    }
    EXPECT_EQ(shown.valueSpy.count(), 8) << "the last press changed nothing";
}

TEST(TickSnappingSlider, KeysKeepTheStep)
{
    Shown shown(Qt::Horizontal, {1, 12, 4});
    std::vector<double> values;
    for (const auto key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Left, Qt::Key_Home, Qt::Key_End}) {
        QTest::keyClick(&shown.slider, key);
        values.push_back(shown.slider.value());
    }
    EXPECT_EQ(values, (std::vector<double>{5, 9, 12, 9, 1, 12}));
}

TEST(TickSnappingSlider, TakesTheFocusByTabAndClickButNotByWheel)
{
    EXPECT_EQ(TickSnappingSlider(Qt::Horizontal, 0, 1, 1).focusPolicy(), Qt::StrongFocus);
}

TEST(TickSnappingSlider, TheWheelWithoutFocusScrollsThePage)
{
    QScrollArea page;
    auto* content = new QWidget;
    auto* other = new QLineEdit(content);
    auto* slider = new TickSnappingSlider(Qt::Horizontal, 0, 127, 1, content);
    slider->setGeometry(0, 40, 200, 24);
    slider->setValue(50);
    content->setFixedSize(220, 2000);
    page.setWidget(content);
    page.resize(250, 200);
    page.show();
    page.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&page));
    other->setFocus();

    test::turnWheel(*slider, -120);
    EXPECT_EQ(slider->value(), 50);
    EXPECT_GT(page.verticalScrollBar()->value(), 0);

    const int scrolled = page.verticalScrollBar()->value();
    slider->setFocus();
    test::turnWheel(*slider, -120);
    test::turnWheel(*slider, -60);
    EXPECT_EQ(slider->value(), 49);
    test::turnWheel(*slider, -60);
    EXPECT_EQ(slider->value(), 48);
    EXPECT_EQ(page.verticalScrollBar()->value(), scrolled);
}

TEST(TickSnappingSlider, IsKnownToAssistiveProgramsAsASliderWithItsValue)
{
    TickSnappingSlider slider(Qt::Horizontal, -64, 63, 1);
    slider.setAccessibleName(QStringLiteral("パン"));
    slider.setValue(-3);
    auto* interface = QAccessible::queryAccessibleInterface(&slider);
    ASSERT_NE(interface, nullptr);
    EXPECT_EQ(interface->role(), QAccessible::Slider);
    EXPECT_EQ(interface->text(QAccessible::Name), QStringLiteral("パン"));
    EXPECT_EQ(interface->text(QAccessible::Value), QStringLiteral("-3"));
    auto* value = interface->valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->minimumValue().toDouble(), -64);
    EXPECT_EQ(value->maximumValue().toDouble(), 63);
    QSignalSpy spy(&slider, &TickSnappingSlider::valueChanged);
    value->setCurrentValue(10.4);
    EXPECT_EQ(slider.value(), 10);
    EXPECT_EQ(spy.count(), 1);
}

} // namespace
} // namespace orvim
