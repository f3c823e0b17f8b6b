#pragma once

#include "platform/CardWatch.h"
#include "platform/DestinationDirectory.h"

#include <functional>
#include <mutex>
#include <set>
#include <thread>

namespace orvim {

/// Follows, on a thread of its own, what is plugged in and pulled out, started and ended.
class SetupListener
{
public:
    /// Called on the listener's thread. `newsFollowed`: the directory is up to date with the sequencer again;
    /// `cardGone`: this card was pulled out, whatever the sequencer says.
    struct Events {
        std::function<void()> newsFollowed;
        std::function<void(int card)> cardGone;
    };

    SetupListener(DestinationDirectory& destinationDirectory, Events listenerEvents);
    SetupListener(const SetupListener&) = delete;
    SetupListener& operator=(const SetupListener&) = delete;
    ~SetupListener();

    /// Watches these cards for being pulled out. From any thread.
    void watchCards(std::set<int> cards);

private:
    void run();
    bool takeWishes();
    void followNews();
    void wake() const;

    DestinationDirectory& directory;
    const Events events;
    const int wakeDescriptor;
    CardWatch cardWatch; ///< the thread's own
    std::mutex mutex;
    std::set<int> wantedCards;
    bool stopping = false;
    std::thread thread;
};

} // namespace orvim
