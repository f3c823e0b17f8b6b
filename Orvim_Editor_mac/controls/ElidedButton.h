#pragma once

#include <QPushButton>

namespace orvim {

/// A push button whose text gives way: where the room is short it ends in an ellipsis and the tool tip holds the whole.
/// It never makes the layout around it wider.
class ElidedButton : public QPushButton
{
    Q_OBJECT

public:
    explicit ElidedButton(const QString& text, QWidget* parent = nullptr);

    QSize minimumSizeHint() const override;
    /// What of the text is to be seen.
    QString shownText() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
};

} // namespace orvim
