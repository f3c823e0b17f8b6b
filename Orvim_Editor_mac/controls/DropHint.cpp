#include "controls/DropHint.h"

#include "controls/ThemeColors.h"

#include <QEvent>

namespace orvim {

namespace {

constexpr int hintPixelSize = 16;
constexpr double textWeight = 0.6;

} // namespace

DropHint::DropHint(const QString& text, QWidget* parent) : QLabel(text, parent)
{
    setObjectName(QStringLiteral("dropHint"));
    setAlignment(Qt::AlignCenter);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setForegroundRole(QPalette::WindowText); // On a list's ground it would be another.
    QFont large = font();
    large.setPixelSize(hintPixelSize);
    setFont(large);
    showColor();
}

void DropHint::changeEvent(QEvent* event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) showColor();
}

/// Mixed here, as some dark themes leave the colour of placeholders dark.
void DropHint::showColor()
{
    const QColor color = mixedColor(palette(), QPalette::Text, QPalette::Base, textWeight);
    if (palette().color(QPalette::WindowText) == color) return;
    QPalette own;
    own.setColor(QPalette::WindowText, color);
    setPalette(own);
}

} // namespace orvim
