#include "platform/ImageTransferItems.h"

#include "platform/Phase3FileError.h"
#include "tests/app/support/WaveFile.h"
#include "tests/support/Thrown.h"

#include <QBuffer>
#include <QColorSpace>
#include <QDir>
#include <QPainter>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace orvim {
namespace {

using test::thrown;
using test::writeFile;

QColor colorAt(const std::vector<std::uint8_t>& picture, int x, int y)
{
    const auto i = static_cast<std::size_t>((y * 64 + x) * 3);
    return QColor(picture.at(i), picture.at(i + 1), picture.at(i + 2));
}

bool isNear(QColor left, QColor right, int tolerance = 4)
{
    return std::abs(left.red() - right.red()) <= tolerance && std::abs(left.green() - right.green()) <= tolerance &&
           std::abs(left.blue() - right.blue()) <= tolerance;
}

QByteArray encoded(const QImage& image, const char* format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    EXPECT_TRUE(image.save(&buffer, format, 95));
    return bytes;
}

/// A PNG of which only the size is true.
QByteArray declaredPNG(quint32 width, quint32 height)
{
    QByteArray bytes = encoded(QImage(1, 1, QImage::Format_RGB32), "PNG");
    qToBigEndian(width, bytes.data() + 16);
    qToBigEndian(height, bytes.data() + 20);
    quint32 crc = 0xFFFFFFFF;
    for (qsizetype i = 12; i < 29; ++i) {
        crc ^= static_cast<quint8>(bytes[i]);
        for (int bit = 0; bit < 8; ++bit)
            crc = crc & 1 ? crc >> 1 ^ 0xEDB88320 : crc >> 1;
    }
    qToBigEndian(~crc, bytes.data() + 29);
    return bytes;
}

/// The JPEG with a note of how the camera was held, 1 to 8.
QByteArray withOrientation(const QByteArray& jpeg, char orientation)
{
    const QByteArray note = QByteArray::fromHex("FFE10022") + QByteArray("Exif\0\0", 6) +
                            QByteArray::fromHex("4D4D002A00000008000101120003000000010000000000000000")
                                .replace(18, 2, QByteArray("\0", 1) + orientation);
    return jpeg.left(2) + note + jpeg.mid(2);
}

class PictureFiles : public testing::Test
{
protected:
    QString written(const QByteArray& bytes, const QString& name = QStringLiteral("絵 1.png"))
    {
        writeFile(folder.filePath(name), bytes);
        return folder.filePath(name);
    }

    std::optional<Phase3FileError> errorOf(const QByteArray& bytes)
    {
        return thrown<Phase3FileError>([&] { loadPicture(written(bytes)); });
    }

    QTemporaryDir folder;
};

TEST(LoadPicture, EveryUsualVariantIsRead)
{
    const QDir pictures(QStringLiteral(ORVIM_SOURCE_DIR "/tests/app/platform/pictures"));
    const auto names = pictures.entryList({QStringLiteral("*.png"), QStringLiteral("*.jpg"), QStringLiteral("*.bmp")});
    ASSERT_EQ(names.size(), 12) << "red on the left, blue on the right";
    for (const QString& name : names) {
        const auto picture = loadPicture(pictures.filePath(name));
        ASSERT_EQ(picture.size(), 12'288u);
        EXPECT_TRUE(isNear(colorAt(picture, 10, 0), Qt::red, 12)) << qPrintable(name);
        EXPECT_TRUE(isNear(colorAt(picture, 53, 0), Qt::blue, 12)) << qPrintable(name);
    }
}

TEST_F(PictureFiles, ATransparentPixelComesOutMixedWithBlack)
{
    QImage image(64, 64, QImage::Format_ARGB32);
    image.fill(QColor(200, 100, 50, 128));
    EXPECT_TRUE(isNear(colorAt(loadPicture(written(encoded(image, "PNG"))), 5, 5), QColor(100, 50, 25), 1));
}

TEST_F(PictureFiles, ASmallPictureStaysSmallInTheMiddle)
{
    QImage image(2, 2, QImage::Format_RGB32);
    image.fill(Qt::white);
    const auto picture = loadPicture(written(encoded(image, "PNG")));
    EXPECT_EQ(colorAt(picture, 31, 31), QColor(Qt::white));
    EXPECT_EQ(colorAt(picture, 32, 32), QColor(Qt::white));
    EXPECT_EQ(colorAt(picture, 30, 31), QColor(Qt::black));
    EXPECT_EQ(colorAt(picture, 33, 32), QColor(Qt::black));
}

TEST_F(PictureFiles, APictureOfACameraHeldUprightStandsUpright)
{
    QImage image(128, 64, QImage::Format_RGB32);
    image.fill(Qt::blue);
    QPainter(&image).fillRect(0, 0, 64, 64, Qt::red);
    const auto turned = withOrientation(encoded(image, "JPG"), 6);
    const auto picture = loadPicture(written(turned, QStringLiteral("a.jpg")));
    EXPECT_TRUE(isNear(colorAt(picture, 32, 8), Qt::red)) << "the left side is on top now";
    EXPECT_TRUE(isNear(colorAt(picture, 32, 55), Qt::blue));
    EXPECT_TRUE(isNear(colorAt(picture, 8, 32), Qt::black));
}

TEST_F(PictureFiles, ALargeTurnedPhotoKeepsItsProportions)
{
    QImage image(1600, 800, QImage::Format_RGB32);
    image.fill(Qt::white);
    const auto picture = loadPicture(written(withOrientation(encoded(image, "JPG"), 8), QStringLiteral("a.jpg")));
    EXPECT_TRUE(isNear(colorAt(picture, 32, 0), Qt::white));
    EXPECT_TRUE(isNear(colorAt(picture, 32, 63), Qt::white));
    EXPECT_TRUE(isNear(colorAt(picture, 15, 32), Qt::black));
    EXPECT_TRUE(isNear(colorAt(picture, 16, 32), Qt::white));
}

/// The mean square error of two pictures in decibels; 50 and more is invisible.
double peakSignalToNoise(const std::vector<std::uint8_t>& left, const std::vector<std::uint8_t>& right)
{
    double sum = 0;
    for (std::size_t i = 0; i < left.size(); ++i)
        sum += (left[i] - right[i]) * (left[i] - right[i]);
    return 10 * std::log10(255.0 * 255.0 * static_cast<double>(left.size()) / sum);
}

TEST_F(PictureFiles, AReducedDecodeOfALargePhotoEqualsItsExactMean)
{
    QImage image(1999, 1501, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgb(x * 255 / 1999, (x / 40 + y / 40) % 2 * 160 + 40, (x + y) / 3 % 256));
    const auto jpeg = encoded(image, "JPG");
    const auto whole = renderImageToRGB888(QImage::fromData(jpeg, "JPG"));
    const auto reduced = loadPicture(written(jpeg, QStringLiteral("a.jpg")));
    EXPECT_GE(peakSignalToNoise(whole, reduced), 40);
}

TEST_F(PictureFiles, ColorsOfAnotherSpaceBecomeSRGB)
{
    QImage image(64, 64, QImage::Format_RGB32);
    image.fill(QColor(0, 255, 0));
    image.setColorSpace(QColorSpace::DisplayP3);
    image.convertToColorSpace(QColorSpace::DisplayP3);
    const auto displayed = QImage(image).convertedToColorSpace(QColorSpace::SRgb).pixelColor(0, 0);
    EXPECT_TRUE(isNear(colorAt(loadPicture(written(encoded(image, "PNG"))), 3, 3), displayed, 1));
}

TEST_F(PictureFiles, WhatTheFileHoldsDecidesAndNotItsName)
{
    QImage image(64, 64, QImage::Format_RGB32);
    image.fill(Qt::green);
    EXPECT_TRUE(isNear(colorAt(loadPicture(written(encoded(image, "JPG"), QStringLiteral("a.bmp"))), 3, 3), Qt::green));
}

TEST_F(PictureFiles, WhatIsNoPictureIsRefused)
{
    EXPECT_EQ(errorOf({}), Phase3FileError::cannotOpenImage) << "empty";
    EXPECT_EQ(errorOf("this is no picture at all"), Phase3FileError::cannotOpenImage);
    EXPECT_EQ(errorOf("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>"),
              Phase3FileError::cannotOpenImage);
    QByteArray corrupt = encoded(QImage(64, 64, QImage::Format_RGB32), "PNG");
    corrupt[20] = static_cast<char>(~corrupt[20]);
    EXPECT_EQ(errorOf(corrupt), Phase3FileError::cannotOpenImage) << "corrupt";
    EXPECT_EQ(errorOf(corrupt.left(20)), Phase3FileError::cannotOpenImage) << "truncated";
    const auto missing = [&] { loadPicture(folder.filePath(QStringLiteral("missing.png"))); };
    EXPECT_EQ(thrown<Phase3FileError>(missing), Phase3FileError::cannotOpenImage);
    EXPECT_EQ(thrown<Phase3FileError>([&] { loadPicture(folder.path()); }), Phase3FileError::cannotOpenImage);
    EXPECT_EQ(thrown<Phase3FileError>([] { loadPicture(QStringLiteral("/dev/zero")); }),
              Phase3FileError::cannotOpenImage);
}

TEST_F(PictureFiles, APictureThatDeclaresAHugeSizeIsRefused)
{
    EXPECT_EQ(errorOf(declaredPNG(60'000, 60'000)), Phase3FileError::cannotOpenImage);
    EXPECT_EQ(errorOf(declaredPNG(0x7FFFFFFF, 0x7FFFFFFF)), Phase3FileError::cannotOpenImage);
    EXPECT_EQ(errorOf(declaredPNG(10'000, 10'000)), Phase3FileError::cannotOpenImage) << "above the decoder's limit";
}

TEST(RenderImageToRGB888, AnEmptyPictureIsRefused)
{
    EXPECT_EQ(thrown<Phase3FileError>([] { renderImageToRGB888(QImage()); }), Phase3FileError::cannotOpenImage);
}

TEST(MakePreviewImage, ShowsThePictureAndNothingElse)
{
    std::vector<std::uint8_t> picture(12'288);
    picture[0] = 0xFF;
    picture[12'287] = 0x80;
    const QImage preview = makePreviewImage(picture);
    EXPECT_EQ(preview.size(), QSize(64, 64));
    EXPECT_EQ(preview.pixelColor(0, 0), QColor(255, 0, 0));
    EXPECT_EQ(preview.pixelColor(63, 63), QColor(0, 0, 128));
    picture.pop_back();
    EXPECT_TRUE(makePreviewImage(picture).isNull());
}

} // namespace
} // namespace orvim
