#include "controls/ValidatedTextField.h"

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace orvim
{

ValidatedTextField::ValidatedTextField(Filter filter, QWidget* parent) : QLineEdit(parent), m_filter(std::move(filter))
{
    connect(this, &QLineEdit::textChanged, this, &ValidatedTextField::acceptEdit);
}

void ValidatedTextField::setBoundText(const QString& text)
{
    if (m_isUpdating) return;
    const QScopedValueRollback updating(m_isUpdating, true);
    m_boundText = text;
    if (this->text() != text) setText(text);
}

void ValidatedTextField::setFieldWidth(int pixels)
{
    setFixedWidth(pixels);
}

void ValidatedTextField::setFontSize(int pixels)
{
    auto sized = font();
    sized.setPixelSize(pixels);
    setFont(sized);
}

void ValidatedTextField::inputMethodEvent(QInputMethodEvent* event)
{
    // The field changes in several steps while it takes the event; it is looked at when all are done.
    m_isComposing = true;
    QLineEdit::inputMethodEvent(event);
    m_isComposing = !event->preeditString().isEmpty();
    acceptEdit();
}

void ValidatedTextField::focusOutEvent(QFocusEvent* event)
{
    if (m_isComposing) {
        // What the input method has not confirmed by now is given up, so that the field shows what it holds.
        QInputMethodEvent end;
        QCoreApplication::sendEvent(this, &end);
    }
    QLineEdit::focusOutEvent(event);
}

void ValidatedTextField::acceptEdit()
{
    if (m_isComposing || m_isUpdating) return;
    const QScopedValueRollback updating(m_isUpdating, true);
    const auto filtered = m_filter(text());
    if (filtered != text()) showFiltered(filtered);
    if (filtered == m_boundText) return;
    m_boundText = filtered;
    Q_EMIT textCommitted(m_boundText);
}

void ValidatedTextField::showFiltered(const QString& filtered)
{
    // The cursor stays behind the same characters, less those that the filter took.
    const auto before = m_filter(text().left(cursorPosition()));
    setText(filtered);
    setCursorPosition(static_cast<int>(std::min(before.size(), filtered.size())));
}

} // namespace orvim
