#pragma once

#include "simulator/DisplayFields.h"

#include <QByteArray>
#include <QImage>

namespace orvim {

class DisplayCanvas;

/// The canvas as an opaque picture of 320 by 170, in the form that paints fastest.
QImage pictureOf(const DisplayCanvas& canvas);

/// The screen drawn afresh, as a PNG file of 320 by 170 with 8 bits a channel, alpha last.
QByteArray pngOf(const DisplayFields& fields);

} // namespace orvim
