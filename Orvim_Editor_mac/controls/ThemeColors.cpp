#include "controls/ThemeColors.h"

namespace orvim {

namespace {

QColor mixed(const QColor& over, const QColor& under, double weight)
{
    const auto channel = [weight](int a, int b) { return qRound(a * weight + b * (1 - weight)); };
    return QColor(channel(over.red(), under.red()), channel(over.green(), under.green()),
                  channel(over.blue(), under.blue()));
}

} // namespace

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

QColor mixedColor(const QPalette& palette, QPalette::ColorRole over, QPalette::ColorRole under, double weight)
{
    return mixed(palette.color(over), palette.color(under), weight);
}

QColor knobColor(const QPalette& palette, bool pressed)
{
    const auto base = palette.color(QPalette::Base);
    const auto text = palette.color(QPalette::WindowText);
    const auto light = base.lightness() > text.lightness() ? base : text;
    return pressed ? mixed(palette.color(QPalette::Highlight), light, 0.25) : light;
}

} // namespace orvim
