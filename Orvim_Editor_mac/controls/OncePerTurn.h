#pragma once

#include <QObject>

#include <functional>

namespace orvim {

/// Runs an action once in the coming turn of the event loop, however often it was asked for before: a thousand changes
/// in one gesture cost a view one refresh.
class OncePerTurn : public QObject
{
public:
    /// `beforeInput`: at the latest ahead of the user's next key or press, which comes sooner than the turn where a
    /// wait has held several back. A view needs it whose controls mean another record after the action.
    enum class Latest { comingTurn, beforeInput };

    OncePerTurn(QObject* parent, std::function<void()> action, Latest latest = Latest::comingTurn);

    void request();

    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    void run();

    std::function<void()> m_action;
    Latest m_latest;
    bool m_isPending = false;
};

} // namespace orvim
