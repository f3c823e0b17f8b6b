#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QImage>

#include <gtest/gtest.h>

namespace orvim::test {

inline QByteArray encoded(const QImage& image, const char* format, int quality = 95)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    EXPECT_TRUE(image.save(&buffer, format, quality));
    return bytes;
}

/// The JPEG with a note of how the camera was held, 1 to 8.
inline QByteArray withOrientation(const QByteArray& jpeg, char orientation)
{
    const QByteArray note = QByteArray::fromHex("FFE10022") + QByteArray("Exif\0\0", 6) +
                            QByteArray::fromHex("4D4D002A00000008000101120003000000010000000000000000")
                                .replace(18, 2, QByteArray("\0", 1) + orientation);
    return jpeg.left(2) + note + jpeg.mid(2);
}

} // namespace orvim::test
