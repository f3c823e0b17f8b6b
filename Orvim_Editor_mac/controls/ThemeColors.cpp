#include "controls/ThemeColors.h"

#include "controls/PaletteColors.h"

#include <QPalette>

namespace orvim {

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::WindowText).lightness() > palette.color(QPalette::Window).lightness();
}

QColor errorColor(const QPalette& palette)
{
    return isDark(palette) ? QColor(0xFF, 0x7B, 0x72) : QColor(0xC6, 0x1A, 0x22);
}

QColor successColor(const QPalette& palette)
{
    return isDark(palette) ? QColor(0x4C, 0xC9, 0x6B) : QColor(0x1A, 0x7F, 0x37);
}

QColor separatorColor(const QPalette& palette)
{
    return mixedColor(palette, QPalette::WindowText, QPalette::Window, 0.18);
}

} // namespace orvim
