#include "controls/OncePerTurn.h"

#include <QCoreApplication>
#include <QEvent>

#include <utility>

namespace orvim {

OncePerTurn::OncePerTurn(QObject* parent, std::function<void()> action, Latest latest)
    : QObject(parent), m_action(std::move(action)), m_latest(latest)
{
}

void OncePerTurn::request()
{
    if (m_isPending) return;
    m_isPending = true;
    if (m_latest == Latest::beforeInput) QCoreApplication::instance()->installEventFilter(this);
    QMetaObject::invokeMethod(this, &OncePerTurn::run, Qt::QueuedConnection);
}

bool OncePerTurn::eventFilter(QObject*, QEvent* event)
{
    if (event->isInputEvent() || event->type() == QEvent::InputMethod) run();
    return false;
}

void OncePerTurn::run()
{
    if (!std::exchange(m_isPending, false)) return; // An input event came first.
    if (m_latest == Latest::beforeInput) QCoreApplication::instance()->removeEventFilter(this);
    m_action();
}

} // namespace orvim
