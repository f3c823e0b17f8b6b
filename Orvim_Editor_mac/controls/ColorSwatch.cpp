#include "controls/ColorSwatch.h"

#include "controls/ThemeColors.h"

#include <QPainter>

namespace orvim {

namespace {

constexpr qreal cornerRadius = 6;

} // namespace

ColorSwatch::ColorSwatch(QWidget* parent) : QWidget(parent) {}

void ColorSwatch::setColor(const QColor& color)
{
    if (m_color == color) return;
    m_color = color;
    setAccessibleDescription(color.name());
    update();
}

void ColorSwatch::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(separatorColor(palette()));
    painter.setBrush(m_color);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);
}

} // namespace orvim
