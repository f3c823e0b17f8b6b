#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

namespace orvim {

struct TransferRow;

/// A row of the list of transfers: what the list shows of an item, and the button that runs it on the module.
class TransferListRow : public QWidget
{
    Q_OBJECT

public:
    TransferListRow(const TransferRow& shown, const QString& buttonTitle, QWidget* parent);

    /// The number changes when rows above go.
    void showNumber(int number);
    QPushButton& button() const { return *m_button; }

    bool eventFilter(QObject* object, QEvent* event) override;

Q_SIGNALS:
    /// The button got the focus, and not by a press: under the pointer it has to stay where it is.
    void buttonReached();

private:
    QString m_filePath;
    QLabel* m_number = nullptr;
    QPushButton* m_button = nullptr;
};

} // namespace orvim
