#include "controls/ElidedLabel.h"

#include <QAccessible>
#include <QPainter>
#include <QTextDocument>

namespace orvim {

ElidedLabel::ElidedLabel(QWidget* parent) : QFrame(parent)
{
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void ElidedLabel::setText(const QString& text)
{
    if (m_text == text) return;
    m_text = text;
    setAccessibleName(text);
    updateToolTip();
    update();
    QAccessibleEvent announcement(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&announcement);
}

void ElidedLabel::setTextColor(const QColor& color)
{
    if (m_color == color) return;
    m_color = color;
    update();
}

void ElidedLabel::setElideMode(Qt::TextElideMode mode)
{
    m_elideMode = mode;
    updateToolTip();
    update();
}

QSize ElidedLabel::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(m_text), fontMetrics().height()};
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {0, fontMetrics().height()};
}

void ElidedLabel::paintEvent(QPaintEvent* event)
{
    QFrame::paintEvent(event);
    QPainter painter(this);
    painter.setPen(m_color.isValid() ? m_color : palette().color(QPalette::WindowText));
    painter.drawText(contentsRect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, elidedText());
}

void ElidedLabel::resizeEvent(QResizeEvent* event)
{
    QFrame::resizeEvent(event);
    updateToolTip();
}

QString ElidedLabel::elidedText() const
{
    return fontMetrics().elidedText(m_text, m_elideMode, contentsRect().width());
}

void ElidedLabel::updateToolTip()
{
    if (elidedText() == m_text) return setToolTip(QString());
    // A file's name may look like markup.
    setToolTip(Qt::mightBeRichText(m_text) ? QStringLiteral("<span>%1</span>").arg(m_text.toHtmlEscaped()) : m_text);
}

} // namespace orvim
