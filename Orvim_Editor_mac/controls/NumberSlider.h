#pragma once

#include <QWidget>

namespace orvim {

class SliderNumberField;
class TickSnappingSlider;

/// A slider over whole numbers with its number beside it; either changes the other.
class NumberSlider : public QWidget
{
    Q_OBJECT

public:
    NumberSlider(const QString& caption, int lowest, int highest, QWidget* parent = nullptr);

    double value() const;
    /// The program's side, silent.
    void setValue(double value);

    /// Lets Tab go from the number of `other`, which stands in the same window, to this slider and on to its number.
    void setTabOrderAfter(const NumberSlider& other);

Q_SIGNALS:
    /// The user has chosen another value.
    void valueChanged(double value);

private:
    TickSnappingSlider* m_slider = nullptr;
    SliderNumberField* m_field = nullptr;
};

} // namespace orvim
