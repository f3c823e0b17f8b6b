#pragma once

#include <QPalette>

namespace orvim {

/// Whether the palette writes light text on a dark ground.
bool isDark(const QPalette& palette);
/// The red of failures and the green of good news, legible on the palette's ground.
QColor errorColor(const QPalette& palette);
QColor successColor(const QPalette& palette);
/// A quiet line between areas.
QColor separatorColor(const QPalette& palette);
/// `weight` parts of the first role's colour in the second one's: right on light and dark themes alike.
QColor mixedColor(const QPalette& palette, QPalette::ColorRole over, QPalette::ColorRole under, double weight);
/// A knob is the lightest thing on its slider on both kinds of theme.
QColor knobColor(const QPalette& palette, bool pressed);

} // namespace orvim
