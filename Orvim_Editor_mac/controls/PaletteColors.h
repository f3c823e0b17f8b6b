#pragma once

#include <QPalette>

namespace orvim {

/// `weight` parts of the first role's colour in the second one's: right on light and dark themes alike.
QColor mixedColor(const QPalette& palette, QPalette::ColorRole over, QPalette::ColorRole under, double weight);

/// A knob is the lightest thing on its slider on both kinds of theme.
QColor knobColor(const QPalette& palette, bool pressed);

} // namespace orvim
