#pragma once

#include <QLabel>

namespace orvim {

/// A quiet text over an empty list: files may be dropped here. What is dropped or pressed reaches the list under it.
class DropHint : public QLabel
{
    Q_OBJECT

public:
    DropHint(const QString& text, QWidget* parent);

protected:
    void changeEvent(QEvent* event) override;

private:
    void showColor();
};

} // namespace orvim
