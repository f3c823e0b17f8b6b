#pragma once

#include <QObject>
#include <QPointer>

#include <deque>
#include <memory>

namespace orvim {

/// Holds back the user's input that an event loop without user input lets through all the same: what an input method
/// sends is kept, drops are refused except where they are taken at all times. What was kept is delivered by the main
/// loop after the last `end`, and in any case before the next key or press. On the main thread.
class InputHold : public QObject
{
    Q_OBJECT

public:
    /// Lets drops through to the receiver also during a hold. What it does with them has to be able to wait.
    static void takeDropsAtAllTimes(QObject& receiver);

    /// Calls may be nested; each is ended by one `end`.
    void begin();
    void end();

    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    struct Kept {
        QPointer<QObject> receiver;
        std::unique_ptr<QEvent> event;
    };

    void deliver();

    std::deque<Kept> kept;
    int holds = 0;
    const QEvent* passing = nullptr; ///< the kept event being delivered, which the filter has to let through
};

} // namespace orvim
