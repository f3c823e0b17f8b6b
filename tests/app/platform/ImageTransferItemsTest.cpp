#include "platform/ImageTransferItems.h"

#include "platform/Phase3FileError.h"
#include "tests/app/support/PictureFiles.h"
#include "tests/app/support/WaveFile.h"
#include "tests/support/Thrown.h"

#include <QBuffer>
#include <QColorSpace>
#include <QDir>
#include <QImageWriter>
#include <QLoggingCategory>
#include <QPainter>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <map>
#include <random>

namespace orvim {
namespace {

using test::encoded;
using test::thrown;
using test::withOrientation;
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

QByteArray jpeg(const QImage& image, bool isProgressive)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, "JPG");
    writer.setProgressiveScanWrite(isProgressive);
    EXPECT_TRUE(writer.write(image));
    return bytes;
}

/// A JPEG of which only the size is true.
QByteArray declaredJPEG(quint16 width, quint16 height, bool isProgressive = false)
{
    QByteArray bytes = jpeg(QImage(64, 64, QImage::Format_RGB32), isProgressive);
    const auto frame = bytes.indexOf(QByteArray::fromHex(isProgressive ? "FFC20011080040" : "FFC00011080040"));
    if (frame < 0) throw std::logic_error("no frame");
    qToBigEndian(height, bytes.data() + frame + 5);
    qToBigEndian(width, bytes.data() + frame + 7);
    return bytes;
}

/// A quarter of each colour: red and green above, blue and white below.
QImage quarters(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.fillRect(0, 0, width / 2, height / 2, Qt::red);
    painter.fillRect(width / 2, 0, width, height / 2, Qt::green);
    painter.fillRect(0, height / 2, width / 2, height, Qt::blue);
    painter.fillRect(width / 2, height / 2, width, height, Qt::white);
    return image;
}

/// Of no two pixels alike, so that most of its file is picture data.
QImage grain(int width, int height)
{
    std::mt19937 random(1);
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, static_cast<uint>(random()));
    return image;
}

/// A bitmap of 64 by 64 pixels of the palette's colour 1, each a run of its own.
QByteArray runLengthBitmap()
{
    constexpr char eightBitRuns = 1;
    QByteArray bytes = encoded(QImage(64, 64, QImage::Format_Grayscale8), "BMP");
    bytes.chop(64 * 64);
    bytes[30] = eightBitRuns;
    const QByteArray row = QByteArray::fromHex("0101").repeated(64) + QByteArray::fromHex("0000");
    return bytes + row.repeated(64) + QByteArray::fromHex("0001");
}

class PictureFiles : public testing::Test
{
protected:
    static void SetUpTestSuite() { limitPictureMemory(); }

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

/// Each shows four quarters, so that none can be read upside down or with its colours exchanged.
TEST(LoadPicture, EveryUsualVariantIsRead)
{
    const QColor grey(128, 128, 128);
    const std::array<QColor, 4> opaque{Qt::red, Qt::green, Qt::blue, Qt::white};
    const std::array<QColor, 4> halfTransparent{QColor(128, 0, 0), QColor(0, 128, 0), QColor(0, 0, 128), grey};
    const std::array<QColor, 4> ofTwoColors{Qt::red, Qt::blue, Qt::blue, Qt::blue};
    const QDir pictures(QStringLiteral(ORVIM_SOURCE_DIR "/tests/app/platform/pictures"));
    const auto names = pictures.entryList({QStringLiteral("*.png"), QStringLiteral("*.jpg"), QStringLiteral("*.bmp")});
    ASSERT_EQ(names.size(), 12);
    for (const QString& name : names) {
        const auto picture = loadPicture(pictures.filePath(name));
        const auto& quarters = name == QStringLiteral("alpha.png")     ? halfTransparent
                               : name == QStringLiteral("one-bit.bmp") ? ofTwoColors
                                                                       : opaque;
        EXPECT_TRUE(isNear(colorAt(picture, 0, 0), quarters[0], 12)) << qPrintable(name);
        EXPECT_TRUE(isNear(colorAt(picture, 63, 0), quarters[1], 12)) << qPrintable(name);
        EXPECT_TRUE(isNear(colorAt(picture, 0, 63), quarters[2], 12)) << qPrintable(name);
        EXPECT_TRUE(isNear(colorAt(picture, 63, 63), quarters[3], 12)) << qPrintable(name);
    }
}

TEST_F(PictureFiles, GreysAreReadAtEveryDepth)
{
    QImage image(64, 64, QImage::Format_Grayscale16);
    image.fill(QColor(0x90, 0x90, 0x90));
    for (const auto format : {QImage::Format_Grayscale16, QImage::Format_Grayscale8, QImage::Format_Indexed8})
        EXPECT_TRUE(isNear(colorAt(loadPicture(written(encoded(image.convertedTo(format), "PNG"))), 9, 9),
                           QColor(0x90, 0x90, 0x90), 1));
    const auto grey = image.convertedTo(QImage::Format_Grayscale8);
    EXPECT_TRUE(isNear(colorAt(loadPicture(written(encoded(grey, "JPG"))), 9, 9), QColor(0x90, 0x90, 0x90), 1));
    EXPECT_TRUE(isNear(colorAt(loadPicture(written(encoded(grey, "BMP"))), 9, 9), QColor(0x90, 0x90, 0x90), 1));
    QImage mono(64, 64, QImage::Format_Mono);
    mono.fill(1);
    EXPECT_EQ(colorAt(loadPicture(written(encoded(mono, "PNG"))), 9, 9), QColor(Qt::white));
}

TEST_F(PictureFiles, ABitmapOfRowsFromTheTopStandsUpright)
{
    QByteArray file = encoded(quarters(64, 64), "BMP");
    qToLittleEndian(qint32(-64), file.data() + 22);
    const auto picture = loadPicture(written(file, QStringLiteral("a.bmp")));
    EXPECT_EQ(colorAt(picture, 2, 2), QColor(Qt::blue)) << "the file's first row, which was the lowest, is on top";
    EXPECT_EQ(colorAt(picture, 61, 61), QColor(Qt::green));
}

TEST_F(PictureFiles, TransparencyIsMixedWithBlackAtEveryDepth)
{
    QImage image(64, 64, QImage::Format_RGBA64);
    image.fill(QColor(200, 100, 50, 128));
    EXPECT_TRUE(isNear(colorAt(loadPicture(written(encoded(image, "PNG"))), 5, 5), QColor(100, 50, 25), 1));
    QImage palette(64, 64, QImage::Format_Indexed8);
    palette.setColorTable({qRgba(200, 100, 50, 128), qRgba(0, 0, 0, 0)});
    palette.fill(0);
    EXPECT_TRUE(isNear(colorAt(loadPicture(written(encoded(palette, "PNG"))), 5, 5), QColor(100, 50, 25), 1));
    palette.fill(1);
    EXPECT_EQ(colorAt(loadPicture(written(encoded(palette, "PNG"))), 5, 5), QColor(Qt::black));
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

TEST_F(PictureFiles, APictureStandsAsItsCameraWasHeld)
{
    const std::array<const char*, 8> quartersSeen{"RGBW", "GRWB", "WBGR", "BWRG", "RBGW", "BRWG", "WGBR", "GWRB"};
    const std::map<char, QColor> colors{{'R', Qt::red}, {'G', Qt::green}, {'B', Qt::blue}, {'W', Qt::white}};
    // The second is decoded at a reduced size.
    for (const auto& jpeg : {encoded(quarters(96, 96), "JPG"), encoded(quarters(3201, 3199), "JPG")}) {
        for (int orientation = 1; orientation <= 8; ++orientation) {
            const auto turned = withOrientation(jpeg, static_cast<char>(orientation));
            const auto picture = loadPicture(written(turned, QStringLiteral("a.jpg")));
            const char* const seen = quartersSeen.at(static_cast<std::size_t>(orientation - 1));
            EXPECT_TRUE(isNear(colorAt(picture, 2, 2), colors.at(seen[0]))) << orientation;
            EXPECT_TRUE(isNear(colorAt(picture, 61, 2), colors.at(seen[1]))) << orientation;
            EXPECT_TRUE(isNear(colorAt(picture, 2, 61), colors.at(seen[2]))) << orientation;
            EXPECT_TRUE(isNear(colorAt(picture, 61, 61), colors.at(seen[3]))) << orientation;
        }
    }
}

TEST_F(PictureFiles, ATurnedPictureIsFittedAsItStands)
{
    const auto picture = loadPicture(written(withOrientation(encoded(quarters(128, 64), "JPG"), 6)));
    EXPECT_TRUE(isNear(colorAt(picture, 20, 2), Qt::blue));
    EXPECT_TRUE(isNear(colorAt(picture, 43, 61), Qt::green));
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

TEST_F(PictureFiles, ColorsOfAnotherSpaceBecomeSRGB)
{
    QImage image(64, 64, QImage::Format_RGB32);
    image.fill(QColor(0, 255, 0));
    image.setColorSpace(QColorSpace::DisplayP3);
    image.convertToColorSpace(QColorSpace::DisplayP3);
    const auto displayed = QImage(image).convertedToColorSpace(QColorSpace::SRgb).pixelColor(0, 0);
    EXPECT_TRUE(isNear(colorAt(loadPicture(written(encoded(image, "PNG"))), 3, 3), displayed, 1));
}

TEST_F(PictureFiles, ColorsWithoutASpaceAreTakenAsTheyAre)
{
    QImage image(64, 64, QImage::Format_RGB32);
    image.fill(QColor(10, 128, 250));
    image.setColorSpace(QColorSpace());
    EXPECT_EQ(colorAt(loadPicture(written(encoded(image, "PNG"))), 3, 3), QColor(10, 128, 250));
    image.setColorSpace(QColorSpace::SRgb);
    EXPECT_EQ(colorAt(loadPicture(written(encoded(image, "PNG"))), 3, 3), QColor(10, 128, 250));
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

/// Of a JPEG, a bitmap of one bit and others only the size is true.
TEST_F(PictureFiles, EveryKindThatDeclaresAHugeSizeIsRefused)
{
    EXPECT_EQ(errorOf(declaredJPEG(65'500, 65'500)), Phase3FileError::cannotOpenImage);
    for (const auto format : {QImage::Format_Mono, QImage::Format_Indexed8, QImage::Format_RGB32}) {
        QByteArray bitmap = encoded(QImage(8, 8, format), "BMP");
        for (const auto& [width, height] :
             {std::pair{qint32(30'000), qint32(30'000)}, {1, INT32_MIN}, {INT32_MAX, INT32_MAX}, {-8, 8}, {0, 8}}) {
            qToLittleEndian(width, bitmap.data() + 18);
            qToLittleEndian(height, bitmap.data() + 22);
            EXPECT_EQ(errorOf(bitmap), Phase3FileError::cannotOpenImage) << width << "x" << height;
        }
    }
}

TEST_F(PictureFiles, APhotoAboveTheDecodersLimitIsReadAtAReducedSize)
{
    EXPECT_EQ(loadPicture(written(declaredJPEG(12'000, 8'000))).size(), 12'288u)
        << "96 megapixels, which would take 384 megabytes";
}

TEST_F(PictureFiles, AProgressiveJPEGThatNeedsTooMuchMemoryIsRefused)
{
    EXPECT_EQ(errorOf(declaredJPEG(12'000, 8'000, true)), Phase3FileError::cannotOpenImage);
    EXPECT_EQ(loadPicture(written(declaredJPEG(4'000, 3'000, true))).size(), 12'288u);
}

TEST_F(PictureFiles, APictureWhoseRestIsMissingIsRefused)
{
    // The decoder complains of each.
    QLoggingCategory::setFilterRules(QStringLiteral("qt.gui.imageio.*=false"));
    const QImage small = grain(64, 64);
    const std::map<const char*, QByteArray> files{
        {"PNG", encoded(small, "PNG")},
        {"PNG of one block", encoded(quarters(200, 200), "PNG")},
        {"baseline JPEG", jpeg(small, false)},
        {"progressive JPEG", jpeg(small, true)},
        {"JPEG decoded smaller", jpeg(quarters(3'201, 3'199), false)},
        {"progressive JPEG decoded smaller", jpeg(quarters(3'201, 3'199), true)},
        {"bitmap of 24 bits", encoded(small, "BMP")},
        {"bitmap of 8 bits", encoded(small.convertedTo(QImage::Format_Indexed8), "BMP")},
        {"bitmap of 1 bit", encoded(small.convertedTo(QImage::Format_Mono), "BMP")},
        {"bitmap of runs", runLengthBitmap()},
    };
    for (const auto& [name, file] : files) {
        EXPECT_EQ(errorOf(file.left(file.size() / 2)), Phase3FileError::cannotOpenImage) << name;
        EXPECT_EQ(errorOf(file.left(file.size() * 9 / 10)), Phase3FileError::cannotOpenImage) << name;
        EXPECT_EQ(errorOf(file), std::nullopt) << name;
        EXPECT_EQ(errorOf(file + QByteArray(5'000, '\x7E')), std::nullopt) << name << " with more behind it";
    }
    QLoggingCategory::setFilterRules({});
}

TEST_F(PictureFiles, EveryBeginningOfAFileIsRefused)
{
    QLoggingCategory::setFilterRules(QStringLiteral("qt.gui.imageio.*=false"));
    constexpr int checkOfPNGsEnd = 4; // No picture data, and not read.
    for (const auto& [format, unread] : {std::pair{"PNG", checkOfPNGsEnd}, {"JPG", 0}, {"BMP", 0}}) {
        const QByteArray file = encoded(quarters(16, 16), format);
        for (qsizetype size = 0; size < file.size() - unread; ++size)
            EXPECT_EQ(errorOf(file.left(size)), Phase3FileError::cannotOpenImage) << format << ' ' << size;
        EXPECT_EQ(errorOf(file), std::nullopt) << format;
    }
    QLoggingCategory::setFilterRules({});
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
