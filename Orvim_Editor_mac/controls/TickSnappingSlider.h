#pragma once

#include "controls/SliderStep.h"

#include <QWidget>

namespace orvim {

/// A slider whose value always lies on its step, and whose track does not jump to the pointer: a press on the knob or
/// within 4 pixels of it drags, a press elsewhere moves by exactly one step towards it.
///
/// Signals tell of the user's doings alone; setValue() and setRange() are the program's side and stay silent.
/// The wheel turns the value only while the slider has the focus, and otherwise scrolls the page around it.
class TickSnappingSlider : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(double value READ value WRITE setValue NOTIFY valueChanged USER true)

public:
    TickSnappingSlider(Qt::Orientation orientation, double lower, double upper, double step, QWidget* parent = nullptr);

    double value() const { return m_value; }
    const SliderRange& range() const { return m_range; }
    Qt::Orientation orientation() const { return m_orientation; }

    /// Takes the value after the rule of the step.
    void setValue(double value);
    void setRange(double lower, double upper);
    /// As if the user had chosen `value`: takes it after the rule of the step and tells of it.
    void choose(double value);

    /// The knob in the widget's coordinates.
    QRectF knobRect() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void valueChanged(double value);
    /// A drag has begun (true) or ended (false).
    void onEditingChanged(bool editing);

protected:
    /// Where the knob's middle stands on the axis for `fraction` of the way from the lower end.
    double knobMiddle(double fraction) const;

    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    bool isHorizontal() const { return m_orientation == Qt::Horizontal; }
    double axisLength() const;
    /// The distance of a point from the lower end's side, along the axis.
    double alongAxis(QPointF point) const;
    void stepTowards(QPointF point);
    void stepBy(double steps);
    void assign(double value);
    void endDrag();

    Qt::Orientation m_orientation;
    SliderRange m_range;
    double m_value = 0;
    double m_bound = 0; ///< the value as the program gave it, which may lie off the range or the step
    bool m_isDragging = false;
    double m_grip = 0;    ///< how far from the knob's middle it was taken
    int m_wheelAngle = 0; ///< eighths of a degree that do not make a step yet
};

} // namespace orvim
