#pragma once

#include <QAbstractButton>

namespace orvim {

/// A sliding switch with the text of its state beside it.
class SwitchRow : public QAbstractButton
{
    Q_OBJECT

public:
    SwitchRow(const QString& textOn, const QString& textOff, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void showState();

    QString m_textOn;
    QString m_textOff;
};

} // namespace orvim
