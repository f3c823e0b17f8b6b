#include "platform/ImageTransferItems.h"

#include "core/media/ImageTransferBuilder.h"
#include "core/media/TransferMIDIFileBuilder.h"
#include "platform/AreaAverage.h"
#include "platform/MIDIFileLoaders.h"
#include "platform/Phase3FileError.h"

#include <QColorSpace>
#include <QFileInfo>
#include <QImageReader>

#include <algorithm>
#include <array>
#include <cmath>

namespace orvim {

namespace {

constexpr int side = tonavelle::ImageTransferBuilder::width;
/// Above the largest photos; a file that declares more is made to use up memory.
constexpr qint64 mostPixels = 128 * 1024 * 1024;
/// What the decoders may take for the pixels of one picture.
constexpr int mostMegabytes = 256;
/// A reduced decode keeps this many pixels for each one drawn, so that the mean over them stays exact.
constexpr double leastReduction = 4;
/// A JPEG can be decoded at any number of these parts of its size.
constexpr int jpegParts = 8;

const std::array<QByteArray, 3>& supportedFormats()
{
    static const std::array<QByteArray, 3> formats{"bmp", "jpeg", "png"};
    return formats;
}

/// The size at which a JPEG is decoded; smaller than its own where that leaves enough.
QSize decodedSize(QSize size)
{
    const auto drawn = aspectFit(size.width(), size.height());
    for (int parts = 1; parts < jpegParts; ++parts) {
        const QSize reduced = size * parts / jpegParts;
        if (reduced.width() >= leastReduction * drawn.width && reduced.height() >= leastReduction * drawn.height)
            return reduced;
    }
    return size;
}

/// Many programs write the customary gamma instead of saying sRGB; both mean the same picture.
bool isNearSRGB(const QColorSpace& space)
{
    constexpr float customaryGamma = 2.2f;
    if (space.primaries() != QColorSpace::Primaries::SRgb) return false;
    if (space.transferFunction() == QColorSpace::TransferFunction::SRgb) return true;
    return space.transferFunction() == QColorSpace::TransferFunction::Gamma &&
           std::abs(space.gamma() - customaryGamma) < 0.05f;
}

void convertToSRGB(QImage& image)
{
    const QColorSpace space = image.colorSpace();
    if (space.isValid() && !isNearSRGB(space)) image.convertToColorSpace(QColorSpace::SRgb);
}

struct DecodedPicture {
    QImage image;
    QSize size; ///< of the whole picture as it is to be seen; the image may be smaller
};

DecodedPicture decode(const QString& path)
{
    // Neither a folder nor a pipe is opened: reading one would fail late or never end.
    if (!QFileInfo(path).isFile()) throw Phase3FileError(Phase3FileError::cannotOpenImage);
    QImageReader::setAllocationLimit(mostMegabytes);
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    if (std::ranges::find(supportedFormats(), reader.format()) == supportedFormats().end())
        throw Phase3FileError(Phase3FileError::cannotOpenImage);
    const QSize size = reader.size();
    if (size.isEmpty() || static_cast<qint64>(size.width()) * size.height() > mostPixels)
        throw Phase3FileError(Phase3FileError::cannotOpenImage);
    const bool isTurned = reader.transformation().testFlag(QImageIOHandler::TransformationRotate90);
    if (reader.format() == "jpeg" && decodedSize(size) != size) reader.setScaledSize(decodedSize(size));
    DecodedPicture picture{{}, isTurned ? size.transposed() : size};
    if (!reader.read(&picture.image)) throw Phase3FileError(Phase3FileError::cannotOpenImage);
    return picture;
}

std::vector<std::uint8_t> rendered(QImage image, QSize size)
{
    if (image.isNull() || size.isEmpty()) throw Phase3FileError(Phase3FileError::cannotOpenImage);
    convertToSRGB(image);
    const auto format = image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
    image.convertTo(format);
    if (image.isNull() || image.format() != format) throw Phase3FileError(Phase3FileError::cannotCreateBitmapContext);
    const PixelView pixels{image.width(), image.height(), image.constBits(),
                           static_cast<std::size_t>(image.bytesPerLine())};
    return areaAveraged(pixels, aspectFit(size.width(), size.height()));
}

} // namespace

std::vector<std::uint8_t> loadPicture(const QString& path)
{
    DecodedPicture picture = decode(path);
    return rendered(std::move(picture.image), picture.size);
}

std::vector<std::uint8_t> renderImageToRGB888(const QImage& image)
{
    return rendered(image, image.size());
}

QImage makePreviewImage(std::span<const std::uint8_t> rgb888)
{
    if (rgb888.size() != tonavelle::ImageTransferBuilder::rgbByteCount) return {};
    constexpr qsizetype bytesPerLine = side * static_cast<qsizetype>(tonavelle::ImageTransferBuilder::bytesPerPixel);
    return QImage(rgb888.data(), side, side, bytesPerLine, QImage::Format_RGB888).convertedTo(QImage::Format_RGB32);
}

std::vector<ImageTransferItem> readImageItemsFromMIDIFile(const QString& path)
{
    std::vector<ImageTransferItem> items;
    for (auto& rgb888 : tonavelle::TransferMIDIFileBuilder::restoreImages(parseMIDIEvents(path))) {
        const int screenNumber = static_cast<int>(items.size());
        const QString source = QStringLiteral("MIDI Import: screen %1").arg(screenNumber, 2, 10, QLatin1Char('0'));
        QImage preview = makePreviewImage(rgb888);
        items.push_back({QUuid::createUuid(), screenNumber, source, std::move(rgb888), std::move(preview)});
    }
    return items;
}

} // namespace orvim
