#pragma once

#include <QFrame>

namespace orvim {

/// One line of text that gives way: where the room is short it ends in an ellipsis, or has one in its middle, and the
/// tool tip holds the whole. Its text never changes the layout around it.
class ElidedLabel : public QFrame
{
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    const QString& text() const { return m_text; }
    void setText(const QString& text);
    void setElideMode(Qt::TextElideMode mode);
    /// The colour of the text; an invalid one stands for the palette's own.
    void setTextColor(const QColor& color);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QString elidedText() const;
    void updateToolTip();

    QString m_text;
    QColor m_color;
    Qt::TextElideMode m_elideMode = Qt::ElideRight;
};

} // namespace orvim
