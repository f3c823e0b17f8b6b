#include "controls/HeldKey.h"

#include <QKeyEvent>

#include <chrono>
#include <utility>

namespace orvim {

namespace {

/// The press of a repetition is a fraction of a millisecond behind its release on the way; a busy machine takes more.
/// Nobody hears a note end so much later.
constexpr auto moment = std::chrono::milliseconds(20);

} // namespace

HeldKey::HeldKey(QObject* parent, std::function<void()> begin, std::function<void()> end)
    : QObject(parent), m_begin(std::move(begin)), m_end(std::move(end))
{
    m_releasing.setSingleShot(true);
    m_releasing.setTimerType(Qt::PreciseTimer);
    m_releasing.setInterval(moment);
    m_releasing.callOnTimeout(this, [this] { m_end(); });
}

void HeldKey::press(const QKeyEvent& event)
{
    if (event.isAutoRepeat()) return;
    const bool isReleasing = m_releasing.isActive();
    m_releasing.stop();
    if (isReleasing && event.timestamp() == m_releaseTime) return;
    if (isReleasing) m_end();
    m_begin();
}

void HeldKey::release(const QKeyEvent& event)
{
    if (event.isAutoRepeat()) return;
    m_releaseTime = event.timestamp();
    m_releasing.start();
}

} // namespace orvim
