#pragma once

#include <QColor>
#include <QPalette>
#include <QPolygonF>

class QPainter;

namespace orvim {

/// The colours of a curve; an invalid one stands for the palette's own.
struct GraphColors {
    QColor mainColor;
    QColor fillColor;

    /// The same with nothing left open.
    GraphColors resolved(const QPalette& palette) const;
};

/// A thin line whatever the scale of the screen.
inline constexpr double graphLineWidth = 1.4;

/// Draws the ground on which a graph stands, with its frame.
void drawGraphGround(QPainter& painter, const QRectF& rect, const QPalette& palette);

/// Draws a curve, filled down or up to the line at `baseY`.
void drawCurve(QPainter& painter, const QPolygonF& curve, double baseY, const GraphColors& colors);

} // namespace orvim
