#include "simulator/DisplayPicture.h"

#include "simulator/DisplayCanvas.h"
#include "simulator/RenderDisplay.h"

#include <QBuffer>

namespace orvim {

namespace {

/// Shares the canvas's bytes, which must outlive it.
QImage viewOf(const DisplayCanvas& canvas)
{
    return QImage(canvas.bytes().data(), DisplayCanvas::width, DisplayCanvas::height, DisplayCanvas::bytesPerRow,
                  QImage::Format_RGBA8888);
}

} // namespace

QImage pictureOf(const DisplayCanvas& canvas)
{
    return viewOf(canvas).convertToFormat(QImage::Format_RGB32);
}

QByteArray pngOf(const DisplayFields& fields)
{
    DisplayCanvas canvas;
    renderDisplay(fields, canvas);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    viewOf(canvas).save(&buffer, "PNG");
    return bytes;
}

} // namespace orvim
