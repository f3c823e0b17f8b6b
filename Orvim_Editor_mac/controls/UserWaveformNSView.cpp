#include "controls/UserWaveformNSView.h"

#include "controls/GraphDrawing.h"
#include "core/tone/UserWaveformBuilder.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <limits>

namespace orvim {

namespace Drawing = tonavelle::WaveformDrawing;
using tonavelle::UserWaveformBuilder::sampleCount;

namespace {

constexpr QSize usualSize(560, 240);
constexpr QSize smallestSize(260, 140);
constexpr int gridInterval = 256;
constexpr int gridLineWidth = 1;
constexpr double curveLineWidth = 1.4;
constexpr QRgb gridColor = qRgb(0x50, 0x50, 0x50);
constexpr double cursorRadius = 3.5;
constexpr int cursorStep = 1;
constexpr int cursorPage = 64;
constexpr int valueStep = 256;
constexpr int valuePage = 4096;

int valueChange(int key)
{
    switch (key) {
    case Qt::Key_Up:
        return valueStep;
    case Qt::Key_Down:
        return -valueStep;
    case Qt::Key_PageUp:
        return valuePage;
    case Qt::Key_PageDown:
        return -valuePage;
    default:
        return 0;
    }
}

} // namespace

UserWaveformNSView::UserWaveformNSView(QWidget* parent)
    : QWidget(parent), m_currentSamples(tonavelle::UserWaveformBuilder::sine())
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true); // a move without a button tells of a release that went elsewhere
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setCursor(Qt::CrossCursor);
    setAccessibleName(tr("波形エディタ"));
    describe();
}

QSize UserWaveformNSView::sizeHint() const
{
    return usualSize;
}

QSize UserWaveformNSView::minimumSizeHint() const
{
    return smallestSize;
}

void UserWaveformNSView::setCurrentSamples(const tonavelle::UserWaveform& samples)
{
    m_isEditing = false;
    m_lastDragPoint.reset();
    if (samples == m_currentSamples) return;
    m_currentSamples = samples;
    describe();
    update();
}

void UserWaveformNSView::apply(QPointF position)
{
    applyPoint(
        Drawing::pointAt(position.x(), position.y(), {static_cast<double>(width()), static_cast<double>(height())}));
}

void UserWaveformNSView::applyPoint(Drawing::Point point)
{
    if (!Drawing::drawTo(m_currentSamples, m_lastDragPoint, point)) return;
    m_lastDragPoint = point;
    m_cursor = point.index;
    describe();
    update();
}

void UserWaveformNSView::endEditing()
{
    if (!m_isEditing) return;
    m_isEditing = false;
    m_lastDragPoint.reset();
    if (m_onEditingEnded) m_onEditingEnded(m_currentSamples);
}

void UserWaveformNSView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) return;
    endEditing();
    m_showsCursor = false;
    m_isEditing = true;
    apply(event->position());
}

void UserWaveformNSView::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_isEditing) return;
    // The release went to somebody else, a dialog for example.
    if (!(event->buttons() & Qt::LeftButton)) return endEditing();
    apply(event->position());
    // While a button is held, leaving is not told of in any other way. The stroke goes on to the edge and ends there.
    const QPointF position = event->position();
    if (position.x() < 0 || position.y() < 0 || position.x() >= width() || position.y() >= height()) endEditing();
}

void UserWaveformNSView::mouseReleaseEvent(QMouseEvent* event)
{
    if (!m_isEditing || event->button() != Qt::LeftButton) return;
    apply(event->position());
    endEditing();
}

void UserWaveformNSView::leaveEvent(QEvent*)
{
    endEditing();
}

void UserWaveformNSView::hideEvent(QHideEvent*)
{
    endEditing();
}

void UserWaveformNSView::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Undo) && m_onUndo) return m_onUndo();
    if (m_currentSamples.size() == sampleCount && (moveCursor(*event) || changeSample(event->key()))) {
        m_showsCursor = true;
        describe();
        update();
        return;
    }
    QWidget::keyPressEvent(event);
}

bool UserWaveformNSView::moveCursor(const QKeyEvent& event)
{
    constexpr int last = static_cast<int>(sampleCount) - 1;
    const int step = event.modifiers() & Qt::ShiftModifier ? cursorPage : cursorStep;
    switch (event.key()) {
    case Qt::Key_Left:
        m_cursor = std::max(m_cursor - step, 0);
        return true;
    case Qt::Key_Right:
        m_cursor = std::min(m_cursor + step, last);
        return true;
    case Qt::Key_Home:
        m_cursor = 0;
        return true;
    case Qt::Key_End:
        m_cursor = last;
        return true;
    default:
        return false;
    }
}

bool UserWaveformNSView::changeSample(int key)
{
    const int change = valueChange(key);
    if (change == 0 || m_isEditing) return change != 0;
    using Limits = std::numeric_limits<std::int16_t>;
    const int value = m_currentSamples[static_cast<std::size_t>(m_cursor)] + change;
    m_isEditing = true;
    applyPoint({m_cursor, static_cast<std::int16_t>(std::clamp<int>(value, Limits::min(), Limits::max()))});
    endEditing();
    return true;
}

void UserWaveformNSView::describe()
{
    if (m_currentSamples.size() != sampleCount) return setAccessibleDescription({});
    setAccessibleDescription(
        tr("サンプル %1: %2").arg(m_cursor).arg(m_currentSamples[static_cast<std::size_t>(m_cursor)]));
}

void UserWaveformNSView::focusInEvent(QFocusEvent* event)
{
    m_showsCursor = event->reason() != Qt::MouseFocusReason;
    update();
}

void UserWaveformNSView::focusOutEvent(QFocusEvent*)
{
    // Whatever has the focus now may take the release as well.
    endEditing();
    update();
}

void UserWaveformNSView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    drawGrid(painter);
    if (m_currentSamples.size() != sampleCount) return;
    painter.setRenderHint(QPainter::Antialiasing);
    drawSamples(painter);
    if (hasFocus()) drawCursor(painter);
}

void UserWaveformNSView::drawGrid(QPainter& painter) const
{
    for (int index = 0; index <= static_cast<int>(sampleCount); index += gridInterval)
        painter.fillRect(gridColumn(index), QColor(gridColor));
    painter.fillRect(QRect(0, height() / 2, width(), gridLineWidth), QColor(gridColor));
}

void UserWaveformNSView::drawSamples(QPainter& painter) const
{
    QPolygonF curve;
    for (int x = 0; x < width(); ++x) {
        curve << QPointF(x, yOf(Drawing::indexAtColumn(x, width())));
    }
    painter.setPen(QPen(QColor::fromRgbF(1.0F, 0.843F, 0.0F), curveLineWidth));
    painter.save();
    moveToPixelCentre(painter);
    painter.drawPolyline(curve);
    painter.restore();
}

double UserWaveformNSView::yOf(int index) const
{
    // The lowest value stands on the last row, not under it: the curve runs through the pixels that drew it.
    return std::max(height() - 1, 1) - Drawing::heightOf(m_currentSamples[static_cast<std::size_t>(index)], height());
}

QRect UserWaveformNSView::gridColumn(int index) const
{
    return {qRound(Drawing::gridX(index, width())), 0, gridLineWidth, height()};
}

void UserWaveformNSView::drawCursor(QPainter& painter) const
{
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(rect()).adjusted(1, 1, -1, -1));
    if (!m_showsCursor) return;
    painter.fillRect(gridColumn(m_cursor), Qt::white);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    moveToPixelCentre(painter);
    painter.drawEllipse(QPointF(Drawing::gridX(m_cursor, width()), yOf(m_cursor)), cursorRadius, cursorRadius);
}

} // namespace orvim
