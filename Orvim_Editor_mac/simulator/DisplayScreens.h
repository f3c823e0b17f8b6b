#pragma once

#include "simulator/DisplayCanvas.h"
#include "simulator/DisplayFields.h"

namespace orvim {

/// The pieces of the screen, each drawn over what is there. Coordinates in their sources are logical unless a call says
/// otherwise: the header is rows 0 to 19, the main area columns 0 to 128 below it, the indicator strip the rest.

void drawHeader(const DisplayFields& fields, DisplayCanvas& canvas);

/// The voice count, or its stand-in, above the two level meters, and the rule to their left.
void drawIndicatorStrip(const DisplayFields& fields, DisplayCanvas& canvas);

/// The 16 by 16 dots over the whole main area, or over its right half beside a picture.
enum class DotDisplayForm { wide, narrow };
void drawDotDisplay(const DisplayFields& fields, DotDisplayForm form, DisplayCanvas& canvas);

void drawFace(const DisplayFields& fields, DisplayCanvas& canvas);
void drawArbitraryImage(const DisplayFields& fields, DisplayCanvas& canvas);
void drawPianoRoll(DisplayCanvas& canvas);
void drawOscilloscope(const DisplayFields& fields, DisplayCanvas& canvas);
void drawPerformanceMonitor(const DisplayFields& fields, DisplayCanvas& canvas);
void drawWaterfall(DisplayCanvas& canvas);

/// What fills the screen in a special mode; nothing in the mode `none`.
void drawSpecialScreen(const DisplayFields& fields, DisplayCanvas& canvas);

} // namespace orvim
