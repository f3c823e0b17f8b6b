#include "controls/ADSRGraphView.h"
#include "controls/ThemeColors.h"
#include "controls/ToneKeyboardNSView.h"
#include "controls/UserWaveformNSView.h"
#include "controls/WaveformGraphView.h"

#include <QImage>
#include <QTest>

#include <cmath>
#include <gtest/gtest.h>

namespace orvim {
namespace {

using tonavelle::UserWaveform;

constexpr QRgb red = qRgb(0xFF, 0, 0);
constexpr QRgb gold = qRgb(255, 215, 0);
constexpr QRgb grid = qRgb(0x50, 0x50, 0x50);
constexpr int top = 8;   ///< of both graphs
constexpr int left = 10; ///< of both graphs

/// The widget as it is drawn on a display of 1 or 2 device pixels a unit.
QImage picture(QWidget& widget, int ratio = 1)
{
    QImage image(widget.size() * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::magenta);
    widget.render(&image);
    return image;
}

int count(const QImage& image, const QRect& area, QRgb color)
{
    int pixels = 0;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            pixels += image.pixel(x, y) == color ? 1 : 0;
    return pixels;
}

/// Whether the pixels from one column to another, both of a display of one pixel a unit, are all of that colour.
bool isRow(const QImage& image, int ratio, int first, int last, int y, QRgb color)
{
    const int length = (last - first) * ratio;
    return count(image, QRect(first * ratio, y * ratio, length, 1), color) == length;
}

QRgb markColor(const QWidget& widget)
{
    return mixedColor(widget.palette(), QPalette::WindowText, QPalette::Base, 0.6).rgb();
}

QPalette theme(bool isDark)
{
    QPalette palette(isDark ? QColor(0x30, 0x30, 0x30) : QColor(0xEF, 0xEF, 0xEF));
    palette.setColor(QPalette::Base, isDark ? QColor(0x1E, 0x1E, 0x1E) : QColor(Qt::white));
    return palette;
}

double luminance(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& one, const QColor& other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

class GraphPictures : public testing::TestWithParam<int>
{
protected:
    void SetUp() override
    {
        envelope.setColors({QColor(red), QColor(0, 0, 0, 0)});
        wave.setColors({QColor(red), QColor(0, 0, 0, 0)});
    }

    ADSRGraphView envelope;
    WaveformGraphView wave;
    UserWaveformNSView surface;
};

INSTANTIATE_TEST_SUITE_P(OneAndTwoPixelsAUnit, GraphPictures, testing::Values(1, 2));

TEST_P(GraphPictures, TheEnvelopesLineAndItsBaseLineFillTheirPixels)
{
    const int ratio = GetParam();
    envelope.setParameters({.sustainLevel = 127, .releaseActive = false});
    const QImage held = picture(envelope, ratio);
    EXPECT_TRUE(isRow(held, ratio, 20, 260, top, red));
    EXPECT_TRUE(isRow(held, ratio, 20, 260, top + 63, markColor(envelope)));
    envelope.setParameters({.releaseActive = false});
    // A curve that has come down to 0 runs on the base line.
    EXPECT_TRUE(isRow(picture(envelope, ratio), ratio, 20, 260, top + 63, red));
}

TEST_P(GraphPictures, OnlyAnEnvelopeWithAReleaseShowsWhereTheNoteEnds)
{
    const int ratio = GetParam();
    const QRect line(138 * ratio, (top + 5) * ratio, 1, 55 * ratio);
    const QRect noteOn(left * ratio, (top + 66) * ratio, 60 * ratio, 14 * ratio);
    const QRect noteOff(139 * ratio, (top + 66) * ratio, 120 * ratio, 14 * ratio);
    for (const bool releaseActive : {true, false}) {
        // So slow a release leaves the line free.
        envelope.setParameters({.sustainLevel = 127, .release = 127, .releaseActive = releaseActive});
        const QImage image = picture(envelope, ratio);
        const QRgb ground = envelope.palette().color(QPalette::Base).rgb();
        EXPECT_EQ(count(image, line, markColor(envelope)) > 25 * ratio, releaseActive);
        EXPECT_EQ(count(image, line, ground) == line.height(), !releaseActive);
        EXPECT_LT(count(image, noteOn, ground), noteOn.width() * noteOn.height());
        EXPECT_EQ(count(image, noteOff, ground) == noteOff.width() * noteOff.height(), !releaseActive);
    }
}

TEST_P(GraphPictures, ASquareWaveIsDrawnOnWholeRows)
{
    const int ratio = GetParam();
    wave.setWave({.waveType = 1}, std::nullopt);
    const QImage image = picture(wave, ratio);
    // The second row of the curve's room and the last one, in pixels of the display.
    const int highest = ratio * top + 1;
    const int lowest = ratio * (top + 64) - 1;
    EXPECT_EQ(count(image, QRect((left + 5) * ratio, highest, 115 * ratio, 1), red), 115 * ratio);
    EXPECT_EQ(count(image, QRect((left + 135) * ratio, lowest, 115 * ratio, 1), red), 115 * ratio);
}

TEST_P(GraphPictures, TypesWithoutAPictureShowTheGroundAndItsMiddleAlone)
{
    const int ratio = GetParam();
    for (const int type : {6, 7, 12}) {
        wave.setWave({.waveType = type}, std::nullopt);
        const QImage image = picture(wave, ratio);
        EXPECT_EQ(count(image, image.rect(), red), 0) << type;
        EXPECT_TRUE(isRow(image, ratio, left, left + 256, top + 32, separatorColor(wave.palette()).rgb())) << type;
    }
}

TEST_P(GraphPictures, TheFillReachesFromTheCurveToItsBase)
{
    const int ratio = GetParam();
    envelope.setColors({QColor(red), QColor(Qt::green)});
    envelope.setParameters({.sustainLevel = 127, .releaseActive = false});
    EXPECT_TRUE(isRow(picture(envelope, ratio), ratio, 20, 260, top + 30, qRgb(0, 255, 0)));
    wave.setColors({QColor(red), QColor(Qt::green)});
    wave.setWave({.waveType = 1}, std::nullopt);
    const QImage image = picture(wave, ratio);
    EXPECT_TRUE(isRow(image, ratio, left + 5, left + 120, top + 20, qRgb(0, 255, 0)));
    EXPECT_TRUE(isRow(image, ratio, left + 135, left + 250, top + 50, qRgb(0, 255, 0)));
}

TEST_P(GraphPictures, TheSurfaceShowsItsGridAndTheEndsOfTheRangeWhole)
{
    const int ratio = GetParam();
    surface.resize(560, 240);
    surface.setCurrentSamples(UserWaveform(2'048, -32'768));
    const QImage low = picture(surface, ratio);
    EXPECT_TRUE(isRow(low, ratio, 1, 559, 239, gold));
    EXPECT_EQ(low.pixel(30 * ratio, 30 * ratio), qRgb(0, 0, 0));
    EXPECT_EQ(count(low, QRect(71 * ratio, 120 * ratio, 60 * ratio, ratio), grid), 60 * ratio * ratio);
    for (const int column : {0, 70, 140, 210, 280, 350, 419, 489, 559})
        EXPECT_EQ(count(low, QRect(column * ratio, 10, ratio, 100), grid), 100 * ratio) << column;
    surface.setCurrentSamples(UserWaveform(2'048, 32'767));
    EXPECT_TRUE(isRow(picture(surface, ratio), ratio, 1, 559, 0, gold));
}

TEST_P(GraphPictures, AStrokeIsSeenUnderThePointerThatDrewIt)
{
    const int ratio = GetParam();
    surface.resize(560, 240);
    for (const int y : {0, 37, 120, 238, 239}) {
        QTest::mousePress(&surface, Qt::LeftButton, {}, QPoint(100, y));
        QTest::mouseRelease(&surface, Qt::LeftButton, {}, QPoint(200, y));
        EXPECT_TRUE(isRow(picture(surface, ratio), ratio, 105, 195, y, gold)) << y;
    }
}

TEST_F(GraphPictures, AWaveformThatIsNotWholeShowsTheGridAlone)
{
    surface.resize(560, 240);
    surface.setCurrentSamples(UserWaveform(100, 0));
    const QImage image = picture(surface);
    EXPECT_EQ(count(image, image.rect(), gold), 0);
    EXPECT_TRUE(isRow(image, 1, 0, 560, 120, grid));
}

TEST_F(GraphPictures, CurvesStandOutOnBothThemesAndTurnGreyWhenDisabled)
{
    wave.setColors({});
    wave.setWave({.waveType = 1}, std::nullopt);
    for (const bool isDark : {false, true}) {
        wave.setPalette(theme(isDark));
        const QColor curve = picture(wave).pixelColor(left + 60, top + 1);
        EXPECT_GT(contrast(curve, wave.palette().color(QPalette::Base)), 4.5) << isDark;
        wave.setEnabled(false);
        const QColor quiet = picture(wave).pixelColor(left + 60, top + 1);
        EXPECT_EQ(quiet.saturation(), 0) << isDark;
        EXPECT_NE(quiet, wave.palette().color(QPalette::Base)) << isDark;
        wave.setEnabled(true);
    }
}

TEST_F(GraphPictures, TheGraphsTellTheirValues)
{
    envelope.setParameters({1, 2, 3, 4, 5, false});
    EXPECT_EQ(envelope.accessibleDescription(),
              QStringLiteral("Attack Time 1, Decay Time 2, Sustain Level 3, Sustain Rate 4, Release Time 5, "
                             "Release Active オフ"));
    wave.setWave({3, 4, 5}, std::nullopt);
    EXPECT_EQ(wave.accessibleDescription(), QStringLiteral("Wave Type 3, Ringmod Multiply 4, Ringmod Gain 5"));
}

TEST(ToneKeyboardPicture, KeysAreWhiteAndBlackAndTheOneThatSoundsIsLit)
{
    ToneKeyboardNSView keyboard({}, {});
    const auto colorAt = [&](int x, int y) { return picture(keyboard).pixelColor(x, y); };
    EXPECT_GT(colorAt(4, 20).lightness(), 240);
    EXPECT_LT(colorAt(8, 5).lightness(), 60);
    QTest::mousePress(&keyboard, Qt::LeftButton, {}, QPoint(8, 5));
    EXPECT_EQ(colorAt(8, 5), keyboard.palette().color(QPalette::Highlight));
    EXPECT_GT(colorAt(4, 20).lightness(), 240);
    QTest::mouseRelease(&keyboard, Qt::LeftButton, {}, QPoint(8, 5));
    EXPECT_LT(colorAt(8, 5).lightness(), 60);
}

} // namespace
} // namespace orvim
