// Large pictures made small, compared with the exact mean over every pixel of the source. 50 decibels between the two
// are a difference that nobody sees.

#include "platform/AreaAverage.h"
#include "platform/ImageTransferItems.h"
#include "tests/app/support/PictureFiles.h"
#include "tests/app/support/WaveFile.h"

#include <QPainter>
#include <QTemporaryDir>

#include <cmath>
#include <gtest/gtest.h>

namespace orvim {
namespace {

using Picture = std::vector<std::uint8_t>;
constexpr int side = 64;
constexpr double invisible = 50;

int clampedByte(double value)
{
    return static_cast<int>(std::clamp(value, 0.0, 255.0));
}

/// Soft shapes, gradients over the whole, a swelling pattern and grain.
QImage photograph(int width, int height)
{
    std::uint32_t noise = 1;
    const auto random = [&noise] { return static_cast<int>((noise = noise * 1'664'525 + 1'013'904'223) >> 24); };
    QImage shapes(width / 16 + 2, height / 16 + 2, QImage::Format_RGB32);
    for (int y = 0; y < shapes.height(); ++y)
        for (int x = 0; x < shapes.width(); ++x)
            shapes.setPixel(x, y, qRgb(random(), random(), random()));
    QImage image = shapes.scaled(width, height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    for (int y = 0; y < height; ++y) {
        auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < width; ++x) {
            const double grain = random() % 24 - 12;
            const double swell = 64 + 63 * std::sin(static_cast<double>(x) * y / width / 300);
            line[x] = qRgb(clampedByte(qRed(line[x]) / 2.0 + 127.0 * x / width + grain),
                           clampedByte(qGreen(line[x]) / 2.0 + 127.0 * y / height + grain),
                           clampedByte(qBlue(line[x]) / 2.0 + swell + grain));
        }
    }
    return image;
}

/// Lines of one pixel, circles and text on white.
QImage lineArt(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setPen(QPen(Qt::black, 1));
    for (int x = 0; x < width; x += 37)
        painter.drawLine(x, 0, width - x, height);
    for (int radius = 10; radius < height / 2; radius += 29)
        painter.drawEllipse(QPoint(width / 2, height / 2), radius, radius);
    QFont font = painter.font();
    font.setPixelSize(std::max(height / 12, 4));
    painter.setFont(font);
    painter.setPen(Qt::red);
    painter.drawText(image.rect(), Qt::AlignCenter | Qt::TextWordWrap, QStringLiteral("Line art 線画 0123456789"));
    return image;
}

/// What one pixel of the source gives to the result's pixels in one direction.
struct Share {
    int pixel = 0;
    double part = 0;
};

std::vector<std::vector<Share>> shares(int sourceLength, double start, double length)
{
    std::vector<std::vector<Share>> result(static_cast<std::size_t>(sourceLength));
    const double pitch = length / sourceLength;
    double from = start;
    for (auto& own : result) {
        const double to = start + pitch * static_cast<double>(&own - result.data() + 1);
        for (int pixel = static_cast<int>(from); pixel < side && pixel < to; ++pixel)
            own.push_back({pixel, std::min(to, pixel + 1.0) - std::max<double>(from, pixel)});
        from = to;
    }
    return result;
}

/// Every pixel of the source poured into the rectangle, in double.
Picture exactMean(const QImage& image)
{
    const auto drawn = aspectFit(image.width(), image.height());
    const auto columns = shares(image.width(), drawn.left, drawn.width);
    const auto rows = shares(image.height(), drawn.top, drawn.height);
    std::array<double, side * side * 3> sum{};
    for (int y = 0; y < image.height(); ++y) {
        const auto* const line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        std::array<double, side * 3> row{};
        for (int x = 0; x < image.width(); ++x) {
            for (const auto& [pixel, part] : columns[static_cast<std::size_t>(x)]) {
                double* const color = &row[static_cast<std::size_t>(pixel) * 3];
                color[0] += part * qRed(line[x]);
                color[1] += part * qGreen(line[x]);
                color[2] += part * qBlue(line[x]);
            }
        }
        for (const auto& [pixel, part] : rows[static_cast<std::size_t>(y)])
            for (std::size_t i = 0; i < row.size(); ++i)
                sum[static_cast<std::size_t>(pixel) * row.size() + i] += part * row[i];
    }
    Picture picture(sum.size());
    std::ranges::transform(sum, picture.begin(),
                           [](double value) { return static_cast<std::uint8_t>(std::lround(value)); });
    return picture;
}

double decibels(const Picture& left, const Picture& right)
{
    double squares = 0;
    for (std::size_t i = 0; i < left.size(); ++i)
        squares += (left.at(i) - right.at(i)) * (left[i] - right[i]);
    return 10 * std::log10(255.0 * 255.0 * static_cast<double>(left.size()) / squares);
}

Picture loaded(const QByteArray& file)
{
    const QTemporaryDir folder;
    test::writeFile(folder.filePath(QStringLiteral("a")), file);
    return loadPicture(folder.filePath(QStringLiteral("a")));
}

struct Scene {
    int width = 0;
    int height = 0;
    QImage (*draw)(int, int) = photograph;
};

std::ostream& operator<<(std::ostream& stream, const Scene& scene)
{
    return stream << (scene.draw == photograph ? "photograph " : "line art ") << scene.width << "x" << scene.height;
}

class PictureFidelity : public testing::TestWithParam<Scene>
{
protected:
    QImage image() const { return GetParam().draw(GetParam().width, GetParam().height); }
};

TEST_P(PictureFidelity, ADecodedPictureIsItsExactMean)
{
    const QImage source = image();
    EXPECT_GE(decibels(renderImageToRGB888(source), exactMean(source)), 70);
}

TEST_P(PictureFidelity, AJPEGReadAtAReducedSizeIsTheExactMeanOfTheWhole)
{
    const QByteArray file = test::encoded(image(), "JPG", 92);
    const QImage whole = QImage::fromData(file).convertToFormat(QImage::Format_RGB32);
    EXPECT_GE(decibels(loaded(file), exactMean(whole)), invisible);
}

TEST_P(PictureFidelity, AJPEGOfACameraHeldUpsideDownIsTheExactMeanToo)
{
    const QByteArray file = test::encoded(image(), "JPG", 92);
    const QImage seen = QImage::fromData(file).convertToFormat(QImage::Format_RGB32).mirrored(true, true);
    EXPECT_GE(decibels(loaded(test::withOrientation(file, 3)), exactMean(seen)), invisible);
}

INSTANTIATE_TEST_SUITE_P(Photographs, PictureFidelity,
                         testing::Values(Scene{4000, 3000}, Scene{1999, 1501}, Scene{601, 4001}, Scene{777, 301},
                                         Scene{3183, 1111}));
INSTANTIATE_TEST_SUITE_P(LineArt, PictureFidelity,
                         testing::Values(Scene{4000, 3000, lineArt}, Scene{1999, 1501, lineArt},
                                         Scene{4001, 601, lineArt}, Scene{1000, 1000, lineArt},
                                         Scene{301, 1777, lineArt}, Scene{2591, 1945, lineArt}));

TEST(PictureFidelityYardstick, OneSmoothDrawingIsFarFromTheExactMean)
{
    const QImage source = lineArt(4000, 3000);
    QImage drawn(side, side, QImage::Format_RGB888);
    drawn.fill(Qt::black);
    QPainter painter(&drawn);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRectF(0, 8, 64, 48), source);
    painter.end();
    EXPECT_LT(decibels({drawn.constBits(), drawn.constBits() + drawn.sizeInBytes()}, exactMean(source)), 30);
}

} // namespace
} // namespace orvim
