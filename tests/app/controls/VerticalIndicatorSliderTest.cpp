#include "controls/VerticalIndicatorSlider.h"

#include <QTest>

#include <gtest/gtest.h>

namespace orvim {
namespace {

int marksIn(const QImage& picture, int x)
{
    int marks = 0;
    for (int y = 1; y < picture.height(); ++y) {
        if (picture.pixel(x, y) != picture.pixel(x, 0) && picture.pixel(x, y - 1) == picture.pixel(x, 0)) ++marks;
    }
    return marks;
}

TEST(VerticalIndicatorSlider, StandsOnEndAndKeepsWholeTicks)
{
    VerticalIndicatorSlider slider(0, 16, 1);
    EXPECT_EQ(slider.orientation(), Qt::Vertical);
    slider.setValue(7.5);
    EXPECT_EQ(slider.value(), 8);
    slider.setValue(99);
    EXPECT_EQ(slider.value(), 16);
}

TEST(VerticalIndicatorSlider, DrawsATickMarkForEachValue)
{
    VerticalIndicatorSlider slider(0, 16, 1);
    slider.resize(40, 160);
    EXPECT_EQ(marksIn(slider.grab().toImage(), 31), 17);
}

TEST(VerticalIndicatorSlider, DrawsNoMarksWithoutAStep)
{
    VerticalIndicatorSlider slider(0, 16, 0);
    slider.resize(40, 160);
    EXPECT_EQ(marksIn(slider.grab().toImage(), 31), 0);
}

} // namespace
} // namespace orvim
