#include "controls/NumberSlider.h"

#include "controls/SliderNumberField.h"
#include "controls/TickSnappingSlider.h"

#include <QHBoxLayout>

namespace orvim {

namespace {

constexpr QSize fieldSize(56, 24);
constexpr int spacing = 6;

} // namespace

NumberSlider::NumberSlider(const QString& caption, int lowest, int highest, QWidget* parent)
    : QWidget(parent), m_slider(new TickSnappingSlider(Qt::Horizontal, lowest, highest, 1)),
      m_field(new SliderNumberField(lowest, highest, fieldSize))
{
    m_slider->setObjectName(caption);
    m_slider->setAccessibleName(caption);
    m_field->setObjectName(caption + QStringLiteral(" number"));
    m_field->setAccessibleName(tr("%1の値").arg(caption));

    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spacing);
    layout->addWidget(m_slider, 1);
    layout->addWidget(m_field);
    setFocusProxy(m_slider);

    connect(m_slider, &TickSnappingSlider::valueChanged, this, [this](double value) {
        m_field->setValue(value);
        Q_EMIT valueChanged(value);
    });
    connect(m_field, &SliderNumberField::valueChanged, this, [this](double value) {
        m_slider->setValue(value);
        Q_EMIT valueChanged(value);
    });
}

double NumberSlider::value() const
{
    return m_slider->value();
}

void NumberSlider::setValue(double value)
{
    m_slider->setValue(value);
    m_field->setValue(value);
}

void NumberSlider::setTabOrderAfter(const NumberSlider& other)
{
    // In terms of the two parts: the whole takes no focus itself, and so has no place in the order.
    setTabOrder(other.m_field, m_slider);
    setTabOrder(m_slider, m_field);
}

} // namespace orvim
