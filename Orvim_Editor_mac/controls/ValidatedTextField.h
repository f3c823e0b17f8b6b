#pragma once

#include <QLineEdit>

#include <functional>

namespace orvim {

/// A text field that filters what is typed and keeps out of the way of an input method: text that is still being
/// composed changes nothing, and neither the filter nor the bound text sees it before it is confirmed.
class ValidatedTextField : public QLineEdit
{
    Q_OBJECT

public:
    using Filter = std::function<QString(const QString&)>;

    explicit ValidatedTextField(Filter filter, QWidget* parent = nullptr);

    const QString& boundText() const { return m_boundText; }
    /// The program's side: shows the text as it is, unfiltered and silently. Another text than the bound one ends what
    /// is being composed. Ignored while an edit is being told of.
    void setBoundText(const QString& text);

    /// The text belongs to something else from now on: ends what is being composed, and undoing no longer leads back.
    void forgetEdits();

    void setFontSize(int pixels);

Q_SIGNALS:
    /// The user's text has passed the filter and differs from the bound text before.
    void textCommitted(const QString& text);

protected:
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void acceptEdit();
    void endComposition();
    void showFiltered(const QString& filtered);
    void replaceDifference(const QString& wanted);

    Filter m_filter;
    QString m_boundText;
    bool m_isComposing = false;
    bool m_isUpdating = false;
};

} // namespace orvim
