#pragma once

#include <QColor>
#include <QPalette>
#include <QPolygonF>

class QEvent;
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

/// Whether a widget that draws itself has to do so again after this change.
bool changesLook(const QEvent& event);

/// Device pixels to a unit of the painter's coordinates.
double deviceScale(const QPainter& painter);

/// Moves what is drawn next by half a device pixel: a line through whole coordinates fills pixels and lies between
/// none.
void moveToPixelCentre(QPainter& painter);

/// Draws the ground on which a graph stands, with its frame.
void drawGraphGround(QPainter& painter, const QRectF& rect, const QPalette& palette);

/// Draws a curve, filled down or up to the line at `baseY`.
void drawCurve(QPainter& painter, const QPolygonF& curve, double baseY, const GraphColors& colors);

} // namespace orvim
