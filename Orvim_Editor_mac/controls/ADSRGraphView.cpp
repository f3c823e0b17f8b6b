#include "controls/ADSRGraphView.h"

#include "controls/ThemeColors.h"
#include "controls/ValueDescription.h"

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
constexpr int noteOffX = ADSREnvelope::noteOffTime / timePerPixel + leftEdge;
constexpr int endX = ADSREnvelope::duration / timePerPixel + leftEdge;
constexpr QSize viewSize(endX + leftEdge, topMargin + baseY + textHeight + 1);

} // namespace

ADSRGraphView::ADSRGraphView(QWidget* parent) : QWidget(parent)
{
    setFixedSize(viewSize);
    setAccessibleName(tr("エンベロープのグラフ"));
    describe();
}

void ADSRGraphView::setParameters(const ADSRParameters& parameters)
{
    if (parameters == m_parameters) return;
    m_parameters = parameters;
    describe();
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
    drawTexts(painter);
    // Points have whole coordinates; the lines run through the middle of these pixels.
    painter.translate(0.5, 0.5);
    drawLines(painter);
    QPolygonF curve;
    for (const EnvelopePoint& point : ADSREnvelope::points(m_parameters))
        curve << position(point);
    drawCurve(painter, curve, baseY, m_colors.resolved(palette()));
}

QColor ADSRGraphView::markColor() const
{
    return mixedColor(palette(), QPalette::WindowText, QPalette::Base, 0.6);
}

void ADSRGraphView::drawTexts(QPainter& painter) const
{
    QFont font = painter.font();
    font.setPixelSize(textPixelSize);
    painter.setFont(font);
    painter.setPen(markColor());
    const QRect texts(leftEdge, baseY + 2, endX - leftEdge, textHeight - 2);
    painter.drawText(texts, Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("NOTE ON"));
    if (!m_parameters.releaseActive) return;
    painter.drawText(texts.adjusted(noteOffX - leftEdge, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                     QStringLiteral("NOTE OFF"));
}

void ADSRGraphView::drawLines(QPainter& painter) const
{
    painter.setPen(QPen(markColor(), 1, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(QPoint(leftEdge, baseY), QPoint(endX, baseY));
    if (!m_parameters.releaseActive) return;
    painter.setPen(QPen(markColor(), 1, Qt::DashLine, Qt::FlatCap));
    // From the edge of a pixel on, so that the dashes fill theirs.
    painter.drawLine(QPointF(noteOffX, 0.5 - topMargin), QPointF(noteOffX, baseY));
}

void ADSRGraphView::describe()
{
    using ID = tonavelle::ToneParameterID;
    setAccessibleDescription(describedValues({
        {ID::attack, QString::number(m_parameters.attack)},
        {ID::decay, QString::number(m_parameters.decay)},
        {ID::sustainLevel, QString::number(m_parameters.sustainLevel)},
        {ID::sustainRate, QString::number(m_parameters.sustainRate)},
        {ID::release, QString::number(m_parameters.release)},
        {ID::isReleaseActive, m_parameters.releaseActive ? tr("オン") : tr("オフ")},
    }));
}

void ADSRGraphView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (changesLook(*event)) update();
}

} // namespace orvim
