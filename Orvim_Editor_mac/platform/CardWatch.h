#pragma once

#include <map>
#include <poll.h>
#include <set>
#include <span>
#include <vector>

namespace orvim {

/// Sees sound cards being pulled out, at once and even in the middle of a transfer, when the sequencer is seconds late.
class CardWatch
{
public:
    CardWatch() = default;
    CardWatch(const CardWatch&) = delete;
    CardWatch& operator=(const CardWatch&) = delete;
    ~CardWatch();

    /// The card is there and has not been pulled out.
    static bool hasControlDevice(int card);

    /// Watches these cards and no others.
    void follow(const std::set<int>& cards);
    /// Watches also the numbers of cards that are gone, as new cards may have got them.
    void startAnew();
    /// Opens what could not be opened so far, as the control device of a new card is the last of it to appear.
    void openMissing();
    bool hasMissing() const;

    /// What to wait on; in the order of `goneCards`.
    std::vector<pollfd> descriptors() const;
    /// The cards that are gone by what `poll` found. Each is reported once.
    std::vector<int> takeGone(std::span<const pollfd> polled);

private:
    static constexpr int mostAttempts = 20;

    struct Card {
        int descriptor = -1;
        int attempts = 0;
        bool isGone = false;
    };

    static bool isMissing(const Card& card);

    std::map<int, Card> cards;
};

} // namespace orvim
