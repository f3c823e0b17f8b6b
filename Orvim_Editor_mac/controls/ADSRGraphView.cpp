#include "controls/ADSRGraphView.h"

#include "controls/PaletteColors.h"

#include <QEvent>
#include <QPainter>

namespace orvim {

namespace {

constexpr int timePerPixel = 750;
constexpr int leftEdge = 10;
constexpr int baseY = 63;
constexpr int levelHeight = 64;
constexpr int topMargin = 8; ///< above the highest level, which stands at -1
constexpr int textHeight = 17;
constexpr int textPixelSize = 10;
constexpr QSize viewSize(leftEdge + ADSREnvelope::duration / timePerPixel + leftEdge,
                         topMargin + baseY + textHeight + 1);

} // namespace

ADSRGraphView::ADSRGraphView(QWidget* parent) : QWidget(parent)
{
    setFixedSize(viewSize);
    setAccessibleName(tr("エンベロープのグラフ"));
}

void ADSRGraphView::setParameters(const ADSRParameters& parameters)
{
    if (parameters == m_parameters) return;
    m_parameters = parameters;
    update();
}

void ADSRGraphView::setColors(const GraphColors& colors)
{
    m_colors = colors;
    update();
}

QPoint ADSRGraphView::position(const EnvelopePoint& point)
{
    return {point.time / timePerPixel + leftEdge, baseY - levelHeight * point.level / ADSREnvelope::fullLevel};
}

QSize ADSRGraphView::sizeHint() const
{
    return viewSize;
}

void ADSRGraphView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    drawGraphGround(painter, rect(), palette());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(0, topMargin);
    drawMarks(painter);
    QPolygonF curve;
    for (const EnvelopePoint& point : ADSREnvelope::points(m_parameters))
        curve << position(point);
    drawCurve(painter, curve, baseY, m_colors.resolved(palette()));
}

void ADSRGraphView::drawMarks(QPainter& painter) const
{
    const QColor quiet = mixedColor(palette(), QPalette::WindowText, QPalette::Base, 0.6);
    QFont font = painter.font();
    font.setPixelSize(textPixelSize);
    painter.setFont(font);
    painter.setPen(QPen(quiet, 1));
    const int end = position({ADSREnvelope::duration, 0}).x();
    painter.drawLine(QPointF(leftEdge, baseY + 0.5), QPointF(end, baseY + 0.5));
    const QRectF texts(leftEdge, baseY + 2, end - leftEdge, textHeight - 2);
    painter.drawText(texts, Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("NOTE ON"));
    if (!m_parameters.releaseActive) return;
    const int noteOff = position({ADSREnvelope::noteOffTime, 0}).x();
    painter.setPen(QPen(quiet, 1, Qt::DashLine));
    painter.drawLine(QPointF(noteOff + 0.5, 1 - topMargin), QPointF(noteOff + 0.5, baseY));
    painter.setPen(quiet);
    painter.drawText(texts.adjusted(noteOff - leftEdge, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                     QStringLiteral("NOTE OFF"));
}

void ADSRGraphView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::EnabledChange || event->type() == QEvent::PaletteChange) update();
}

} // namespace orvim
