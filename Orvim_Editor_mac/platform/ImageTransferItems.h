#pragma once

#include <QImage>
#include <QString>
#include <QUuid>

#include <cstdint>
#include <span>
#include <vector>

namespace orvim {

/// One row of the image page's list.
struct ImageTransferItem {
    QUuid id;
    int screenNumber = 0; ///< the row's place in the list
    QString filePath;
    std::vector<std::uint8_t> rgb888; ///< 64 by 64 pixels of red, green and blue
    QImage previewImage;
};

/// Holds the decoders to 256 megabytes a picture; one that needs more is refused. To be called once, before any thread.
void limitPictureMemory();

/// A picture file shrunk to fit 64 by 64 pixels on black: bmp, jpeg or png, upright as its camera was held, its colours
/// in sRGB. Throws Phase3FileError::cannotOpenImage, also for a picture that is too large to be decoded or of
/// which a part is missing.
std::vector<std::uint8_t> loadPicture(const QString& path);

/// The decoded picture drawn on black into 64 by 64 pixels. Throws Phase3FileError: cannotOpenImage for an empty
/// picture, cannotCreateBitmapContext where there is no memory for its pixels.
std::vector<std::uint8_t> renderImageToRGB888(const QImage& image);

/// The picture as an image of 64 by 64 pixels; empty for any other count of bytes.
QImage makePreviewImage(std::span<const std::uint8_t> rgb888);

/// The same, or a clear image of 64 by 64 pixels where there is none, so that each row of the list has one.
QImage previewOrEmpty(std::span<const std::uint8_t> rgb888);

/// The pictures of an exported file, from screen 0 to the highest that it holds. Throws as parseMIDIEvents does.
std::vector<ImageTransferItem> readImageItemsFromMIDIFile(const QString& path);

} // namespace orvim
