#include "controls/OncePerTurn.h"

#include <utility>

namespace orvim {

OncePerTurn::OncePerTurn(QObject* parent, std::function<void()> action) : QObject(parent), m_action(std::move(action))
{
}

void OncePerTurn::request()
{
    if (m_isPending) return;
    m_isPending = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_isPending = false;
            m_action();
        },
        Qt::QueuedConnection);
}

} // namespace orvim
