#include "controls/TickSnappingSlider.h"

#include "controls/SliderAccessibility.h"
#include "controls/ThemeColors.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace orvim {

namespace {

constexpr double knobSize = 16;
constexpr double grooveThickness = 4;
constexpr double pressMargin = 4; ///< a press this near the knob still takes it
constexpr double focusMargin = 2;
constexpr double endMargin = knobSize / 2 + focusMargin; ///< from the knob's outermost middle to the widget's edge
constexpr int thickness = 24;                            ///< knob, margin of a press and focus ring
constexpr int usualLength = 160;
constexpr int shortestLength = 60;
constexpr double stepsPerPage = 10;
constexpr int wheelNotch = 120;

} // namespace

TickSnappingSlider::TickSnappingSlider(Qt::Orientation orientation, double lower, double upper, double step,
                                       QWidget* parent)
    : QWidget(parent), m_orientation(orientation), m_range{lower, upper, step}, m_value(lower), m_bound(lower)
{
    installSliderAccessibility();
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true); // a move without a button tells of a release that went elsewhere
    setSizePolicy(isHorizontal() ? QSizePolicy::Expanding : QSizePolicy::Fixed,
                  isHorizontal() ? QSizePolicy::Fixed : QSizePolicy::Expanding);
}

void TickSnappingSlider::assign(double value)
{
    const double snapped = snappedToStep(value, m_range);
    if (snapped == m_value) return;
    m_value = snapped;
    update();
    QAccessibleValueChangeEvent event(this, m_value);
    QAccessible::updateAccessibility(&event);
}

void TickSnappingSlider::setValue(double value)
{
    m_bound = value;
    assign(value);
}

void TickSnappingSlider::setRange(double lower, double upper)
{
    const SliderRange range{lower, upper, m_range.step};
    if (range == m_range) return;
    m_range = range;
    assign(m_value);
    update();
}

void TickSnappingSlider::choose(double value)
{
    assign(value);
    if (std::exchange(m_bound, m_value) != m_value) Q_EMIT valueChanged(m_value);
}

double TickSnappingSlider::axisLength() const
{
    return isHorizontal() ? width() : height();
}

double TickSnappingSlider::alongAxis(QPointF point) const
{
    return isHorizontal() ? point.x() : height() - point.y();
}

double TickSnappingSlider::knobMiddle(double fraction) const
{
    const double along = endMargin + fraction * (axisLength() - 2 * endMargin);
    return isHorizontal() ? along : height() - along;
}

QRectF TickSnappingSlider::knobRect() const
{
    const double middle = knobMiddle(fractionInRange(m_value, m_range));
    const QPointF center = isHorizontal() ? QPointF(middle, height() / 2.0) : QPointF(width() / 2.0, middle);
    return {center - QPointF(knobSize, knobSize) / 2, QSizeF(knobSize, knobSize)};
}

QSize TickSnappingSlider::sizeHint() const
{
    return isHorizontal() ? QSize(usualLength, thickness) : QSize(thickness, usualLength);
}

QSize TickSnappingSlider::minimumSizeHint() const
{
    return isHorizontal() ? QSize(shortestLength, thickness) : QSize(thickness, shortestLength);
}

void TickSnappingSlider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    const auto reach = knobRect().adjusted(-pressMargin, -pressMargin, pressMargin, pressMargin);
    if (!reach.contains(event->position())) {
        stepTowards(event->position());
        return;
    }
    m_isDragging = true;
    m_grip = alongAxis(event->position()) - alongAxis(knobRect().center());
    update();
    Q_EMIT onEditingChanged(true);
}

void TickSnappingSlider::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_isDragging) return;
    // The release went to somebody else, a dialog for example.
    if (!(event->buttons() & Qt::LeftButton)) return endDrag();
    const double way = axisLength() - 2 * endMargin;
    if (way <= 0) return;
    const double fraction = (alongAxis(event->position()) - m_grip - endMargin) / way;
    choose(m_range.lower + fraction * (m_range.upper - m_range.lower));
}

void TickSnappingSlider::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) endDrag();
}

void TickSnappingSlider::hideEvent(QHideEvent* event)
{
    // The release will go to whatever stands here then.
    endDrag();
    QWidget::hideEvent(event);
}

void TickSnappingSlider::endDrag()
{
    if (!m_isDragging) return;
    m_isDragging = false;
    update();
    Q_EMIT onEditingChanged(false);
}

void TickSnappingSlider::stepTowards(QPointF point)
{
    // The place counts over the slider's whole length, as the pointer does, and not over the knob's shorter way.
    const double place = fractionInRange(m_value, m_range) * axisLength();
    stepBy(alongAxis(point) > place ? 1 : -1);
}

void TickSnappingSlider::stepBy(double steps)
{
    if (m_range.step > 0) choose(m_value + steps * m_range.step);
}

void TickSnappingSlider::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Down:
        return stepBy(-1);
    case Qt::Key_Right:
    case Qt::Key_Up:
        return stepBy(1);
    case Qt::Key_PageDown:
        return stepBy(-stepsPerPage);
    case Qt::Key_PageUp:
        return stepBy(stepsPerPage);
    case Qt::Key_Home:
        return choose(m_range.lower);
    case Qt::Key_End:
        return choose(m_range.upper);
    default:
        event->ignore();
    }
}

void TickSnappingSlider::wheelEvent(QWheelEvent* event)
{
    if (!hasFocus()) {
        event->ignore();
        return;
    }
    const auto angle = event->angleDelta();
    m_wheelAngle += angle.y() != 0 ? angle.y() : -angle.x();
    stepBy(m_wheelAngle / wheelNotch);
    m_wheelAngle %= wheelNotch;
}

void TickSnappingSlider::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);

    const auto knob = knobRect();
    const double start = knobMiddle(0), end = knobMiddle(1);
    const auto groove = [&](double to) {
        const QPointF from = isHorizontal() ? QPointF(start, height() / 2.0) : QPointF(width() / 2.0, start);
        const QPointF until = isHorizontal() ? QPointF(to, from.y()) : QPointF(from.x(), to);
        const double half = grooveThickness / 2;
        painter.drawRoundedRect(QRectF(from, until).normalized().adjusted(-half, -half, half, half), half, half);
    };
    painter.setBrush(mixedColor(palette(), QPalette::WindowText, QPalette::Window, 0.22));
    groove(end);
    if (isEnabled()) {
        painter.setBrush(palette().color(QPalette::Highlight));
        groove(isHorizontal() ? knob.center().x() : knob.center().y());
    }

    if (hasFocus()) {
        painter.setBrush(palette().color(QPalette::Highlight));
        painter.drawEllipse(knob.adjusted(-focusMargin, -focusMargin, focusMargin, focusMargin));
    }
    painter.setBrush(knobColor(palette(), m_isDragging));
    painter.setPen(QPen(mixedColor(palette(), QPalette::WindowText, QPalette::Window, isEnabled() ? 0.5 : 0.25), 1));
    painter.drawEllipse(knob.adjusted(0.5, 0.5, -0.5, -0.5));
}

} // namespace orvim
