#include "platform/InputHold.h"

#include <QCoreApplication>
#include <QEvent>
#include <QVariant>

#include <utility>

namespace orvim {

namespace {

constexpr const char* dropsProperty = "takesDropsAtAllTimes";

/// A window only hands on to its widgets.
bool isDropRefused(const QObject& receiver)
{
    return !receiver.isWindowType() && !receiver.property(dropsProperty).toBool();
}

} // namespace

void InputHold::takeDropsAtAllTimes(QObject& receiver)
{
    receiver.setProperty(dropsProperty, true);
}

void InputHold::begin()
{
    ++holds;
    QCoreApplication::instance()->installEventFilter(this);
}

void InputHold::end()
{
    --holds;
    // Not at once: whoever waited is still in the middle of its work.
    QMetaObject::invokeMethod(this, &InputHold::deliver, Qt::QueuedConnection);
}

bool InputHold::eventFilter(QObject* receiver, QEvent* event)
{
    if (event == passing) return false;
    switch (event->type()) {
    case QEvent::InputMethod:
        kept.push_back({receiver, std::unique_ptr<QEvent>(event->clone())});
        return true;
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        if (holds == 0 || !isDropRefused(*receiver)) return false;
        event->ignore();
        return true;
    default:
        if (event->isInputEvent()) deliver();
        return false;
    }
}

void InputHold::deliver()
{
    while (holds == 0 && !kept.empty()) {
        const Kept next = std::move(kept.front());
        kept.pop_front();
        passing = next.event.get();
        if (next.receiver) QCoreApplication::sendEvent(next.receiver, next.event.get());
        passing = nullptr;
    }
    if (holds == 0) QCoreApplication::instance()->removeEventFilter(this);
}

} // namespace orvim
