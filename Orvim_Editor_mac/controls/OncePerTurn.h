#pragma once

#include <QObject>

#include <functional>

namespace orvim {

/// Runs an action once in the coming turn of the event loop, however often it was asked for before: a thousand changes
/// in one gesture cost a view one refresh.
class OncePerTurn : public QObject
{
public:
    OncePerTurn(QObject* parent, std::function<void()> action);

    void request();

private:
    std::function<void()> m_action;
    bool m_isPending = false;
};

} // namespace orvim
