#include "controls/PaletteColors.h"

namespace orvim {

namespace {

QColor mixed(const QColor& over, const QColor& under, double weight)
{
    const auto channel = [weight](int a, int b) { return qRound(a * weight + b * (1 - weight)); };
    return QColor(channel(over.red(), under.red()), channel(over.green(), under.green()),
                  channel(over.blue(), under.blue()));
}

} // namespace

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
