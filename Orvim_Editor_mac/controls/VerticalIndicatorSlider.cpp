#include "controls/VerticalIndicatorSlider.h"

#include "controls/ThemeColors.h"

#include <QPainter>

#include <cmath>

namespace orvim {

namespace {

constexpr double markLength = 5;
constexpr double markGap = 10; ///< between the track's middle and the marks, so that the knob hides none
constexpr int narrowest = 30;
constexpr double closestMarks = 3;

} // namespace

VerticalIndicatorSlider::VerticalIndicatorSlider(double lower, double upper, double step, QWidget* parent)
    : TickSnappingSlider(Qt::Vertical, lower, upper, step, parent)
{
    setMinimumWidth(narrowest);
}

void VerticalIndicatorSlider::paintEvent(QPaintEvent* event)
{
    const int count = tickCount(range());
    const double way = knobMiddle(0) - knobMiddle(1);
    if (count > 1 && way / (count - 1) >= closestMarks) {
        QPainter painter(this);
        const auto color = mixedColor(palette(), QPalette::WindowText, QPalette::Window, 0.35);
        const double left = width() / 2.0 + markGap;
        for (int i = 0; i < count; ++i) {
            const double y = std::floor(knobMiddle(fractionInRange(range().lower + i * range().step, range())));
            painter.fillRect(QRectF(left, y, markLength, 1), color);
        }
    }
    TickSnappingSlider::paintEvent(event);
}

} // namespace orvim
