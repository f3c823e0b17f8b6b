#include "platform/SetupListener.h"

#include <sys/eventfd.h>
#include <system_error>

#include <chrono>
#include <cstdint>
#include <poll.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace orvim {
namespace {

constexpr std::size_t newsIndex = 0;
constexpr std::size_t cardsIndex = 2; ///< after the descriptor that wakes the thread

int makeWakeDescriptor()
{
    const int descriptor = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (descriptor < 0) throw std::system_error(errno, std::generic_category(), "eventfd");
    return descriptor;
}

} // namespace

SetupListener::SetupListener(DestinationDirectory& destinationDirectory, Events listenerEvents)
    : directory(destinationDirectory), events(std::move(listenerEvents)), wakeDescriptor(makeWakeDescriptor()),
      thread([this] { run(); })
{
}

SetupListener::~SetupListener()
{
    {
        const std::lock_guard lock(mutex);
        stopping = true;
    }
    wake();
    thread.join();
    close(wakeDescriptor);
}

void SetupListener::watchCards(std::set<int> cards)
{
    {
        const std::lock_guard lock(mutex);
        if (wantedCards == cards) return;
        wantedCards = std::move(cards);
    }
    wake();
}

void SetupListener::wake() const
{
    eventfd_write(wakeDescriptor, 1);
}

void SetupListener::run()
{
    while (takeWishes()) {
        std::vector<pollfd> polled{{directory.descriptor(), POLLIN, 0}, {wakeDescriptor, POLLIN, 0}};
        const std::vector<pollfd> cards = cardWatch.descriptors();
        polled.insert(polled.end(), cards.begin(), cards.end());
        constexpr int retryMilliseconds = 100;
        constexpr int forEver = -1;
        if (poll(polled.data(), polled.size(), cardWatch.hasMissing() ? retryMilliseconds : forEver) < 0) continue;

        for (const int card : cardWatch.takeGone(std::span(polled).subspan(cardsIndex))) {
            events.cardGone(card);
        }
        if (polled[newsIndex].revents != 0) followNews();
        cardWatch.openMissing();
    }
}

/// False: the listener is to end.
bool SetupListener::takeWishes()
{
    eventfd_t count = 0;
    eventfd_read(wakeDescriptor, &count);
    const std::lock_guard lock(mutex);
    cardWatch.follow(wantedCards);
    return !stopping;
}

/// The ports of one device are announced one by one; acting on the first would list the others under handles that
/// their own announcements make void.
void SetupListener::followNews()
{
    constexpr auto settlingTime = std::chrono::milliseconds(20);
    constexpr int mostRounds = 5;
    if (!directory.followNews()) return;
    for (int round = 0; round < mostRounds; ++round) {
        std::this_thread::sleep_for(settlingTime);
        if (!directory.followNews()) break;
    }
    cardWatch.startAnew();
    events.newsFollowed();
}

} // namespace orvim
