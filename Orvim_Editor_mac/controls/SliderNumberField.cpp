#include "controls/SliderNumberField.h"

#include <QFocusEvent>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <optional>

namespace orvim {

namespace {

std::optional<double> wholeNumber(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral("\\A[+-]?[0-9]+\\z"));
    if (!pattern.match(text).hasMatch()) return std::nullopt;
    return text.toDouble();
}

} // namespace

SliderNumberField::SliderNumberField(double lower, double upper, QSize size, QWidget* parent)
    : QLineEdit(parent), m_lower(lower), m_upper(upper), m_value(lower)
{
    setFixedSize(size);
    setAlignment(Qt::AlignRight);
    // Digits are typed as they are, also while an input method is on.
    setAttribute(Qt::WA_InputMethodEnabled, false);
    connect(this, &QLineEdit::returnPressed, this, &SliderNumberField::submit);
    showValue();
}

void SliderNumberField::setValue(double value)
{
    m_value = value;
    if (!hasFocus() || !isModified()) showValue();
}

void SliderNumberField::setRange(double lower, double upper)
{
    m_lower = lower;
    m_upper = upper;
}

void SliderNumberField::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    // A menu over the field takes the focus only for a while.
    if (event->reason() == Qt::PopupFocusReason) return;
    // Going through the field without typing changes nothing.
    if (isModified()) submit();
}

void SliderNumberField::submit()
{
    const auto number = wholeNumber(text());
    const double former = m_value;
    if (number) m_value = std::max(std::round(m_lower), std::min(*number, std::round(m_upper)));
    showValue();
    if (m_value != former) Q_EMIT valueChanged(m_value);
}

void SliderNumberField::showValue()
{
    // Adding zero takes the sign from a zero that was rounded up from below.
    const auto shown = QString::number(std::round(m_value) + 0.0, 'f', 0);
    if (text() != shown || isModified()) setText(shown);
}

} // namespace orvim
