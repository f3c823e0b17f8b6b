#include "platform/CardWatch.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace orvim {
namespace {

std::string controlDevice(int card)
{
    return "/dev/snd/controlC" + std::to_string(card);
}

} // namespace

CardWatch::~CardWatch()
{
    follow({});
}

bool CardWatch::hasControlDevice(int card)
{
    return access(controlDevice(card).c_str(), F_OK) == 0;
}

void CardWatch::follow(const std::set<int>& wanted)
{
    std::erase_if(cards, [&wanted](const auto& entry) {
        const auto& [number, card] = entry;
        if (wanted.contains(number)) return false;
        if (card.descriptor >= 0) close(card.descriptor);
        return true;
    });
    for (const int number : wanted) {
        cards.try_emplace(number);
    }
    openMissing();
}

void CardWatch::startAnew()
{
    for (auto& [number, card] : cards) {
        if (card.isGone) card = Card{};
    }
}

void CardWatch::openMissing()
{
    for (auto& [number, card] : cards) {
        if (!isMissing(card)) continue;
        card.descriptor = open(controlDevice(number).c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
        ++card.attempts;
        if (card.descriptor < 0 && errno == EACCES) card.attempts = mostAttempts;
    }
}

bool CardWatch::hasMissing() const
{
    return std::ranges::any_of(cards, [](const auto& entry) { return isMissing(entry.second); });
}

bool CardWatch::isMissing(const Card& card)
{
    return card.descriptor < 0 && !card.isGone && card.attempts < mostAttempts;
}

std::vector<pollfd> CardWatch::descriptors() const
{
    std::vector<pollfd> result;
    for (const auto& [number, card] : cards) {
        if (card.descriptor >= 0) result.push_back({card.descriptor, 0, 0});
    }
    return result;
}

std::vector<int> CardWatch::takeGone(std::span<const pollfd> polled)
{
    std::vector<int> gone;
    for (auto& [number, card] : cards) {
        const int descriptor = card.descriptor;
        const auto found = std::ranges::find(polled, descriptor, &pollfd::fd);
        if (descriptor < 0 || found == polled.end() || (found->revents & (POLLERR | POLLHUP | POLLNVAL)) == 0) continue;
        close(descriptor);
        card = Card{.isGone = true};
        gone.push_back(number);
    }
    return gone;
}

} // namespace orvim
