#include "controls/SliderAccessibility.h"

#include "controls/TickSnappingSlider.h"

#include <QAccessibleWidget>

namespace orvim {

namespace {

class AccessibleSlider : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit AccessibleSlider(TickSnappingSlider& slider) : QAccessibleWidget(&slider, QAccessible::Slider) {}

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Value) return QString::number(slider().value());
        return QAccessibleWidget::text(kind);
    }
    QVariant currentValue() const override { return slider().value(); }
    void setCurrentValue(const QVariant& value) override
    {
        // Unlike keys and presses this comes also to a control that is greyed.
        if (slider().isEnabled()) slider().choose(value.toDouble());
    }
    QVariant maximumValue() const override { return slider().range().upper; }
    QVariant minimumValue() const override { return slider().range().lower; }
    QVariant minimumStepSize() const override { return slider().range().step; }

private:
    TickSnappingSlider& slider() const { return static_cast<TickSnappingSlider&>(*widget()); }
};

QAccessibleInterface* makeAccessibleSlider(const QString&, QObject* object)
{
    auto* slider = qobject_cast<TickSnappingSlider*>(object);
    return slider ? new AccessibleSlider(*slider) : nullptr;
}

} // namespace

void installSliderAccessibility()
{
    static const bool installed = [] {
        QAccessible::installFactory(makeAccessibleSlider);
        return true;
    }();
    Q_UNUSED(installed);
}

} // namespace orvim
