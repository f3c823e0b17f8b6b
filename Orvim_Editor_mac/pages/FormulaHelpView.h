#pragma once

#include <QFrame>

namespace orvim {

/// The help for the formula field, a panel that goes away with the next click beside it or with Escape.
class FormulaHelpView : public QFrame
{
    Q_OBJECT

public:
    explicit FormulaHelpView(QWidget* parent);

    /// Opens under `anchor`, inside its screen.
    void showUnder(const QWidget& anchor);

Q_SIGNALS:
    void closed();

protected:
    void hideEvent(QHideEvent* event) override;
};

} // namespace orvim
