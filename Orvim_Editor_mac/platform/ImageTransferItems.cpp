#include "platform/ImageTransferItems.h"

#include "core/media/ImageTransferBuilder.h"
#include "core/media/TransferMIDIFileBuilder.h"
#include "platform/AreaAverage.h"
#include "platform/MIDIFileLoaders.h"
#include "platform/Phase3FileError.h"
#include "platform/ReadWatch.h"

#include <QColorSpace>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>

namespace orvim {

namespace {

constexpr int side = tonavelle::ImageTransferBuilder::width;
constexpr qsizetype bytesPerLine = side * static_cast<qsizetype>(tonavelle::ImageTransferBuilder::bytesPerPixel);
/// A file that declares more pixels is made to use up memory or time. A JPEG may have more, as it is decoded smaller.
constexpr qint64 mostDecodedPixels = 64 * 1024 * 1024;
constexpr qint64 mostPixels = 128 * 1024 * 1024;
constexpr int mostMegabytes = 256;

/// From how many pixels for each one drawn a JPEG is decoded that many times smaller. A drawn pixel whose edge cuts
/// through a decoded one takes a share of it; with these the difference is not seen, not even in drawings of thin
/// lines.
struct Reduction {
    int divisor;
    int leastPixelsPerDrawn;
};
constexpr std::array<Reduction, 3> reductions{{{8, 49}, {4, 35}, {2, 25}}};

const std::array<QByteArray, 3>& supportedFormats()
{
    static const std::array<QByteArray, 3> formats{"bmp", "jpeg", "png"};
    return formats;
}

int divisorFor(QSize size)
{
    const int longerSide = std::max(size.width(), size.height());
    for (const auto& reduction : reductions)
        if (longerSide >= reduction.leastPixelsPerDrawn * side) return reduction.divisor;
    return 1;
}

bool hasMorePixels(QSize size, qint64 most)
{
    return static_cast<qint64>(size.width()) * size.height() > most;
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
    QSize size;      ///< of the whole picture
    int divisor = 1; ///< how many times smaller the image is; its last column and row may lie outside of the picture
};

DecodedPicture decode(QImageReader& reader, ReadWatch& watch)
{
    // A BMP whose rows run from the top has a negative height.
    const QSize declared = reader.size();
    const QSize size(declared.width(), std::abs(declared.height()));
    if (size.isEmpty() || hasMorePixels(size, mostPixels)) throw Phase3FileError(Phase3FileError::cannotOpenImage);
    const bool isJPEG = reader.format() == "jpeg";
    DecodedPicture picture{{}, size, isJPEG ? divisorFor(size) : 1};
    const int divisor = picture.divisor;
    const QSize decoded((size.width() + divisor - 1) / divisor, (size.height() + divisor - 1) / divisor);
    if (hasMorePixels(decoded, mostDecodedPixels)) throw Phase3FileError(Phase3FileError::cannotOpenImage);
    if (divisor > 1) {
        reader.setScaledSize(decoded);
        // Without a clip in whole blocks the reader would stretch the decoder's pixels to the size asked for.
        reader.setClipRect(QRect(QPoint(), decoded * divisor));
    }
    // To find out the format and the size may have taken a look past the end.
    watch.forget();
    const bool isRead = reader.read(&picture.image) && picture.image.size() == decoded;
    // Of a picture that breaks off two of the decoders make a whole one, with grey or with what the memory held before.
    // JPEGs are read in blocks of which the last is short; one that lacks its end marker alone is refused too.
    const bool lacksData = isJPEG ? watch.hasMissedAll() : watch.hasMissedSome();
    if (!isRead || lacksData) throw Phase3FileError(Phase3FileError::cannotOpenImage);
    return picture;
}

std::vector<std::uint8_t> rendered(DecodedPicture picture)
{
    QImage& image = picture.image;
    if (image.isNull()) throw Phase3FileError(Phase3FileError::cannotOpenImage);
    convertToSRGB(image);
    const auto format = image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
    image.convertTo(format);
    if (image.isNull() || image.format() != format) throw Phase3FileError(Phase3FileError::cannotCreateBitmapContext);
    static_assert(std::endian::native == std::endian::little, "the image's pixels are words, those averaged are bytes");
    const QSizeF seen = QSizeF(picture.size) / picture.divisor;
    const PixelView pixels{seen.width(), seen.height(), image.constBits(),
                           static_cast<std::size_t>(image.bytesPerLine())};
    return areaAveraged(pixels, aspectFit(picture.size.width(), picture.size.height()));
}

/// The picture as it is to be seen.
std::vector<std::uint8_t> turned(const std::vector<std::uint8_t>& rgb888, QImageIOHandler::Transformations turn)
{
    if (turn == QImageIOHandler::TransformationNone) return rgb888;
    QImage image(rgb888.data(), side, side, bytesPerLine, QImage::Format_RGB888);
    image = image.mirrored(turn.testFlag(QImageIOHandler::TransformationMirror),
                           turn.testFlag(QImageIOHandler::TransformationFlip));
    if (turn.testFlag(QImageIOHandler::TransformationRotate90)) image = image.transformed(QTransform().rotate(90));
    return {image.constBits(), image.constBits() + image.sizeInBytes()};
}

} // namespace

void limitPictureMemory()
{
    QImageReader::setAllocationLimit(mostMegabytes);
    // A progressive JPEG, which is decoded smaller only in the end, is held by its decoder as a whole.
    qputenv("JPEGMEM", QByteArray::number(mostMegabytes) + 'M');
}

std::vector<std::uint8_t> loadPicture(const QString& path)
{
    // Neither a folder nor a pipe is opened: reading one would fail late or never end.
    if (!QFileInfo(path).isFile()) throw Phase3FileError(Phase3FileError::cannotOpenImage);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) throw Phase3FileError(Phase3FileError::cannotOpenImage);
    ReadWatch watch(file);
    watch.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    QImageReader reader(&watch);
    reader.setDecideFormatFromContent(true);
    if (std::ranges::find(supportedFormats(), reader.format()) == supportedFormats().end())
        throw Phase3FileError(Phase3FileError::cannotOpenImage);
    const auto picture = rendered(decode(reader, watch));
    // Turned last, where there are few pixels to turn.
    return turned(picture, reader.transformation());
}

std::vector<std::uint8_t> renderImageToRGB888(const QImage& image)
{
    return rendered({image, image.size()});
}

QImage makePreviewImage(std::span<const std::uint8_t> rgb888)
{
    if (rgb888.size() != tonavelle::ImageTransferBuilder::rgbByteCount) return {};
    return QImage(rgb888.data(), side, side, bytesPerLine, QImage::Format_RGB888).convertedTo(QImage::Format_RGB32);
}

QImage previewOrEmpty(std::span<const std::uint8_t> rgb888)
{
    QImage preview = makePreviewImage(rgb888);
    if (!preview.isNull()) return preview;
    preview = QImage(side, side, QImage::Format_ARGB32_Premultiplied);
    preview.fill(Qt::transparent);
    return preview;
}

std::vector<ImageTransferItem> readImageItemsFromMIDIFile(const QString& path)
{
    std::vector<ImageTransferItem> items;
    for (auto& rgb888 : tonavelle::TransferMIDIFileBuilder::restoreImages(parseMIDIEvents(path))) {
        const int screenNumber = static_cast<int>(items.size());
        const QString source = QStringLiteral("MIDI Import: screen %1").arg(screenNumber, 2, 10, QLatin1Char('0'));
        QImage preview = previewOrEmpty(rgb888);
        items.push_back({QUuid::createUuid(), screenNumber, source, std::move(rgb888), std::move(preview)});
    }
    return items;
}

} // namespace orvim
