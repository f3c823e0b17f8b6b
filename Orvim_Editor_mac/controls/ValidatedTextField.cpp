#include "controls/ValidatedTextField.h"

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace orvim {

ValidatedTextField::ValidatedTextField(Filter filter, QWidget* parent) : QLineEdit(parent), m_filter(std::move(filter))
{
    connect(this, &QLineEdit::textChanged, this, &ValidatedTextField::acceptEdit);
}

void ValidatedTextField::setBoundText(const QString& text)
{
    if (m_isUpdating) return;
    // The same text again says nothing new, and must not take away what is being composed.
    if (m_isComposing && text == m_boundText) return;
    const QScopedValueRollback updating(m_isUpdating, true);
    m_boundText = text;
    if (m_isComposing || this->text() != text) setText(text);
    endComposition();
}

void ValidatedTextField::forgetEdits()
{
    const QScopedValueRollback updating(m_isUpdating, true);
    endComposition();
    setText(m_boundText);
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
    endComposition();
    QLineEdit::focusOutEvent(event);
}

void ValidatedTextField::endComposition()
{
    if (!m_isComposing) return;
    // What the input method has not confirmed by now is given up, so that the field shows what it holds.
    QInputMethodEvent end;
    QCoreApplication::sendEvent(this, &end);
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
    // Undoing the edit and inserting what the filter left of it keeps the former edits undoable, and leaves nothing to
    // undo that the filter refuses.
    undo();
    replaceDifference(filtered);
    setCursorPosition(static_cast<int>(std::min(before.size(), filtered.size())));
}

void ValidatedTextField::replaceDifference(const QString& wanted)
{
    const QString shown = text();
    const auto shorter = std::min(shown.size(), wanted.size());
    const auto head = std::mismatch(shown.begin(), shown.begin() + shorter, wanted.begin()).first - shown.begin();
    const auto rest = shorter - head;
    const auto tail = std::mismatch(shown.rbegin(), shown.rbegin() + rest, wanted.rbegin()).first - shown.rbegin();
    if (shown.size() == wanted.size() && head == shown.size()) return;
    setSelection(static_cast<int>(head), static_cast<int>(shown.size() - head - tail));
    insert(wanted.mid(head, wanted.size() - head - tail));
}

} // namespace orvim
