#include "pages/FormulaHelpView.h"

#include "core/tone/FormulaParser.h"
#include "pages/ToneParameterControls.h"

#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace orvim {

namespace {

constexpr int margin = 14;
constexpr int gap = 4;

} // namespace

FormulaHelpView::FormulaHelpView(QWidget* parent) : QFrame(parent, Qt::Popup)
{
    setObjectName(QStringLiteral("formulaHelp"));
    setAccessibleName(tr("数式のヘルプ"));
    // The click that closes the panel does nothing else: on the button of the panel it would open it again.
    setAttribute(Qt::WA_NoMouseReplay);
    setFrameShape(QFrame::StyledPanel);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    auto* const text = new QLabel(fromCore(tonavelle::formulaHelpText));
    text->setTextFormat(Qt::PlainText);
    layout->addWidget(text);
}

void FormulaHelpView::showUnder(const QWidget& anchor)
{
    adjustSize();
    const QRect screen = anchor.screen()->availableGeometry();
    const QPoint place = anchor.mapToGlobal(QPoint(0, anchor.height() + gap));
    move(std::clamp(place.x(), screen.left(), std::max(screen.left(), screen.right() - width())),
         std::clamp(place.y(), screen.top(), std::max(screen.top(), screen.bottom() - height())));
    show();
}

void FormulaHelpView::hideEvent(QHideEvent* event)
{
    QFrame::hideEvent(event);
    Q_EMIT closed();
}

} // namespace orvim
