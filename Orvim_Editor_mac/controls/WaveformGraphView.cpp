#include "controls/WaveformGraphView.h"

#include "controls/ThemeColors.h"
#include "controls/ValueDescription.h"

#include <QPainter>

#include <algorithm>

namespace orvim {

namespace {

constexpr int margin = 10;
constexpr int topMargin = 8;
constexpr QSize curveSize(256, 64);
constexpr QSize viewSize(curveSize.width() + 2 * margin, curveSize.height() + 2 * topMargin);

} // namespace

WaveformGraphView::WaveformGraphView(QWidget* parent) : QWidget(parent)
{
    setFixedSize(viewSize);
    setAccessibleName(tr("波形のグラフ"));
    describe();
}

void WaveformGraphView::setWave(const WaveformGraphParameters& parameters,
                                const std::optional<std::vector<std::int16_t>>& userSamples)
{
    if (parameters == m_parameters && userSamples == m_userSamples) return;
    m_parameters = parameters;
    m_userSamples = userSamples;
    describe();
    update();
}

void WaveformGraphView::setCounts(int sampleCount, int phaseCount)
{
    m_sampleCount = std::max(sampleCount, 1);
    m_phaseCount = std::max(phaseCount, 1);
    update();
}

void WaveformGraphView::setColors(const GraphColors& colors)
{
    m_colors = colors;
    update();
}

void WaveformGraphView::describe()
{
    using ID = tonavelle::ToneParameterID;
    setAccessibleDescription(describedValues({
        {ID::waveType, QString::number(m_parameters.waveType)},
        {ID::ringModMultiply, QString::number(m_parameters.ringModMultiply)},
        {ID::ringModGain, QString::number(m_parameters.ringModGain)},
    }));
}

QSize WaveformGraphView::sizeHint() const
{
    return viewSize;
}

void WaveformGraphView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    drawGraphGround(painter, rect(), palette());
    painter.translate(margin, topMargin);
    const int middle = curveSize.height() / 2;
    painter.fillRect(QRect(0, middle, curveSize.width(), 1), separatorColor(palette()));
    painter.setRenderHint(QPainter::Antialiasing);
    const auto wave = WaveformGraph::wave(m_parameters, m_userSamples.value_or(std::vector<std::int16_t>()),
                                          m_sampleCount, m_phaseCount);
    // A column for each pixel of the screen, which may be finer than the window's own.
    const double scale = deviceScale(painter);
    const QSize pixels = (QSizeF(curveSize) * scale).toSize();
    QPolygonF curve;
    for (int x = 0; const int y : WaveformGraph::columns(wave, pixels.width(), pixels.height()))
        curve << QPointF(x++ / scale, y / scale);
    moveToPixelCentre(painter);
    drawCurve(painter, curve, middle, m_colors.resolved(palette()));
}

void WaveformGraphView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (changesLook(*event)) update();
}

} // namespace orvim
