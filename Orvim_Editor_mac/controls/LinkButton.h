#pragma once

#include <QAbstractButton>

namespace orvim {

/// A line of text that leads somewhere: in the theme's link colour, followed by click, Enter or the space bar.
class LinkButton : public QAbstractButton
{
    Q_OBJECT

public:
    explicit LinkButton(const QString& text, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace orvim
