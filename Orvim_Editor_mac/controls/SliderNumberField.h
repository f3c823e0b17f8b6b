#pragma once

#include <QLineEdit>

namespace orvim {

/// The number beside a slider: shows its value rounded, takes a whole number on Return or when the focus leaves, and
/// limits it to the rounded ends of the range. What is no whole number brings back the former one.
class SliderNumberField : public QLineEdit
{
    Q_OBJECT

public:
    SliderNumberField(double lower, double upper, QSize size, QWidget* parent = nullptr);

    double value() const { return m_value; }
    /// The program's side, silent; the text follows unless the user is typing in it.
    void setValue(double value);
    void setRange(double lower, double upper);

Q_SIGNALS:
    /// The user has entered another value.
    void valueChanged(double value);

protected:
    void focusOutEvent(QFocusEvent* event) override;

private:
    void submit();
    void showValue();

    double m_lower;
    double m_upper;
    double m_value;
};

} // namespace orvim
