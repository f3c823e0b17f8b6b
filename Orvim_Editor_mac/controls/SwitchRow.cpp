#include "controls/SwitchRow.h"

#include "controls/ThemeColors.h"

#include <QPainter>
#include <QStyleOptionFocusRect>

#include <algorithm>

namespace orvim {

namespace {

constexpr QSizeF trackSize(34, 18);
constexpr qreal knobInset = 2;
constexpr int spacing = 8;
constexpr int padding = 3;

} // namespace

SwitchRow::SwitchRow(const QString& textOn, const QString& textOff, QWidget* parent)
    : QAbstractButton(parent), m_textOn(textOn), m_textOff(textOff)
{
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &SwitchRow::toggled, this, &SwitchRow::showState);
    showState();
}

QSize SwitchRow::sizeHint() const
{
    const int textWidth =
        std::max(fontMetrics().horizontalAdvance(m_textOn), fontMetrics().horizontalAdvance(m_textOff));
    const int height = std::max(static_cast<int>(trackSize.height()), fontMetrics().height());
    return {static_cast<int>(trackSize.width()) + spacing + textWidth + 3 * padding, height + 2 * padding};
}

void SwitchRow::showState()
{
    setText(isChecked() ? m_textOn : m_textOff);
    setAccessibleName(text());
}

void SwitchRow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF track({static_cast<qreal>(padding), (height() - trackSize.height()) / 2}, trackSize);
    const QColor off = separatorColor(palette());
    painter.setPen(Qt::NoPen);
    painter.setBrush(isChecked() ? palette().color(QPalette::Highlight) : off);
    painter.drawRoundedRect(track, track.height() / 2, track.height() / 2);

    const qreal diameter = track.height() - 2 * knobInset;
    const qreal left = isChecked() ? track.right() - knobInset - diameter : track.left() + knobInset;
    painter.setBrush(Qt::white);
    painter.drawEllipse(QRectF(left, track.top() + knobInset, diameter, diameter));

    painter.setPen(palette().color(QPalette::WindowText));
    const QRectF textRect = QRectF(rect()).adjusted(track.right() + spacing, 0, 0, 0);
    painter.drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text());

    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        option.backgroundColor = palette().color(QPalette::Window);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}

} // namespace orvim
