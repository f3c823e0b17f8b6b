#pragma once

#include <QColor>

class QPalette;

namespace orvim {

/// Whether the palette writes light text on a dark ground.
bool isDark(const QPalette& palette);
/// The red of failures and the green of good news, legible on the palette's ground.
QColor errorColor(const QPalette& palette);
QColor successColor(const QPalette& palette);
/// A quiet line between areas.
QColor separatorColor(const QPalette& palette);

} // namespace orvim
