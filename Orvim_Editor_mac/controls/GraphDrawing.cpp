#include "controls/GraphDrawing.h"

#include "controls/ThemeColors.h"

#include <QEvent>
#include <QLineF>
#include <QList>
#include <QPainter>

namespace orvim {

namespace {

constexpr float fillAlpha = 0.22F;

QColor curveColor(const QPalette& palette)
{
    return isDark(palette) ? QColor(0x6C, 0xB6, 0xFF) : QColor(0x0B, 0x5C, 0xAD);
}

} // namespace

GraphColors GraphColors::resolved(const QPalette& palette) const
{
    GraphColors result = *this;
    if (!result.mainColor.isValid()) {
        const bool isGrey = palette.currentColorGroup() == QPalette::Disabled;
        result.mainColor =
            isGrey ? mixedColor(palette, QPalette::WindowText, QPalette::Window, 0.5) : curveColor(palette);
    }
    if (!result.fillColor.isValid()) {
        result.fillColor = result.mainColor;
        result.fillColor.setAlphaF(fillAlpha);
    }
    return result;
}

bool changesLook(const QEvent& event)
{
    switch (event.type()) {
    case QEvent::EnabledChange:
    case QEvent::PaletteChange:
    case QEvent::FontChange:
    case QEvent::StyleChange:
        return true;
    default:
        return false;
    }
}

double deviceScale(const QPainter& painter)
{
    return painter.deviceTransform().m11();
}

void moveToPixelCentre(QPainter& painter)
{
    const double half = 0.5 / deviceScale(painter);
    painter.translate(half, half);
}

void drawGraphGround(QPainter& painter, const QRectF& rect, const QPalette& palette)
{
    painter.setPen(QPen(separatorColor(palette), 1));
    painter.setBrush(palette.color(QPalette::Base));
    painter.drawRect(rect.adjusted(0.5, 0.5, -0.5, -0.5));
}

void drawCurve(QPainter& painter, const QPolygonF& curve, double baseY, const GraphColors& colors)
{
    if (curve.isEmpty()) return;
    QPolygonF area = curve;
    area << QPointF(curve.last().x(), baseY) << QPointF(curve.first().x(), baseY);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colors.fillColor);
    painter.drawPolygon(area);
    // Lines one by one, each reaching over its ends, take a fraction of the time of one line with joins.
    QList<QLineF> lines;
    lines.reserve(curve.size());
    for (qsizetype i = 1; i < curve.size(); ++i)
        lines << QLineF(curve[i - 1], curve[i]);
    painter.setPen(QPen(colors.mainColor, graphLineWidth, Qt::SolidLine, Qt::SquareCap));
    painter.drawLines(lines);
}

} // namespace orvim
