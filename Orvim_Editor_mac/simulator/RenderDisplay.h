#pragma once

#include "simulator/DisplayCanvas.h"
#include "simulator/DisplayFields.h"

namespace orvim {

/// Draws the whole screen from its fields, every pixel of it. Any values will do: what is out of range is limited,
/// clipped or left out.
void renderDisplay(const DisplayFields& fields, DisplayCanvas& canvas);

} // namespace orvim
