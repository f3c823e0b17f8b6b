#include "simulator/DisplaySimulatorPreviewView.h"

#include "DisplaySimulatorState.h"
#include "simulator/RenderDisplay.h"
#include "tests/app/support/PaintCounter.h"

#include <QTest>

#include <gtest/gtest.h>

namespace orvim {
namespace {

struct Shown {
    Shown()
    {
        view.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&view));
        QTest::qWait(50);
        paints.count = 0;
    }

    DisplaySimulatorState state;
    DisplaySimulatorPreviewView view{state};
    test::PaintCounter paints{view};
};

/// How many device pixels of the view differ from the screen's own, each of which fills a block of them.
int differences(DisplaySimulatorPreviewView& view, const DisplayFields& fields)
{
    DisplayCanvas canvas;
    renderDisplay(fields, canvas);
    const QImage shown = view.grab().toImage();
    const int block = shown.width() / DisplayCanvas::width;
    int count = 0;
    for (int y = 0; y < shown.height(); ++y) {
        for (int x = 0; x < shown.width(); ++x) {
            const auto* pixel = canvas.bytes().data() + (y / block) * 1280 + (x / block) * 4;
            if (shown.pixel(x, y) != qRgb(pixel[0], pixel[1], pixel[2])) ++count;
        }
    }
    return count;
}

TEST(DisplaySimulatorPreviewView, ShowsEveryPixelOfTheScreenAtItsOwnSize)
{
    Shown shown;
    EXPECT_EQ(shown.view.size(), QSize(320, 170));
    EXPECT_EQ(differences(shown.view, shown.state.fields()), 0);
}

TEST(DisplaySimulatorPreviewView, StretchesWithoutSmoothing)
{
    for (const int scale : {2, 3}) {
        Shown shown;
        shown.state.setColorMode(DisplaySimulatorColorMode::gs);
        shown.view.setFixedSize(320 * scale, 170 * scale);
        QTest::qWait(20);
        EXPECT_EQ(differences(shown.view, shown.state.fields()), 0) << scale;
    }
}

TEST(DisplaySimulatorPreviewView, DrawsAndPaintsOnceATurnHoweverManyFieldsChange)
{
    Shown shown;
    const int drawn = shown.view.drawCount();
    shown.state.setColorMode(DisplaySimulatorColorMode::gm2);
    for (int i = 0; i < 50; ++i)
        shown.state.setIndicators(i, 63 - i, i, DisplaySimulatorSubDisplay::over);
    QTest::qWait(50);
    EXPECT_EQ(shown.view.drawCount(), drawn + 1);
    EXPECT_EQ(shown.paints.count, 1);
    EXPECT_EQ(differences(shown.view, shown.state.fields()), 0);
}

TEST(DisplaySimulatorPreviewView, DoesNotPaintWhatLooksTheSame)
{
    Shown shown;
    shown.state.setFaceBlinking(true);
    QTest::qWait(20);
    for (int i = 0; i < 10; ++i)
        shown.state.blinkTick();
    QTest::qWait(20);
    shown.paints.count = 0;
    for (int i = 0; i < 10; ++i) {
        shown.state.blinkTick();
        QTest::qWait(1);
    }
    shown.state.setWindowShowsBorder(true);
    QTest::qWait(20);
    EXPECT_EQ(shown.paints.count, 0);
}

TEST(DisplaySimulatorPreviewView, DrawsNothingWhileHiddenAndIsRightWhenShownAgain)
{
    Shown shown;
    shown.view.hide();
    const int drawn = shown.view.drawCount();
    shown.paints.count = 0;
    shown.state.setDisplayType(3);
    QTest::qWait(30);
    EXPECT_EQ(shown.view.drawCount(), drawn);
    EXPECT_EQ(shown.paints.count, 0);
    shown.view.show();
    QTest::qWait(50);
    EXPECT_EQ(shown.view.drawCount(), drawn + 1);
    EXPECT_GT(shown.paints.count, 0);
    EXPECT_EQ(differences(shown.view, shown.state.fields()), 0);
}

} // namespace
} // namespace orvim
