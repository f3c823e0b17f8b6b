#include "controls/Rule.h"

#include <QFrame>

namespace orvim {

QFrame* makeRule(QWidget* parent)
{
    auto* const rule = new QFrame(parent);
    rule->setFrameShape(QFrame::HLine);
    rule->setFrameShadow(QFrame::Sunken);
    return rule;
}

} // namespace orvim
