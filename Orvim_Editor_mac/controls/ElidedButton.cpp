#include "controls/ElidedButton.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace orvim {

ElidedButton::ElidedButton(const QString& text, QWidget* parent) : QPushButton(text, parent)
{
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

QSize ElidedButton::minimumSizeHint() const
{
    return {0, QPushButton::minimumSizeHint().height()};
}

QString ElidedButton::shownText() const
{
    QStyleOptionButton option;
    initStyleOption(&option);
    const QRect room = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this);
    return fontMetrics().elidedText(text(), Qt::ElideRight, room.width());
}

void ElidedButton::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text = shownText();
    painter.drawControl(QStyle::CE_PushButton, option);
}

void ElidedButton::resizeEvent(QResizeEvent* event)
{
    QPushButton::resizeEvent(event);
    setToolTip(shownText() == text() ? QString() : text());
}

} // namespace orvim
