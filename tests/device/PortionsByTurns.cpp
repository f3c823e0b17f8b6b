#include "PortionsByTurns.h"

#include <QTimer>

namespace orvim::test {

namespace {

/// The editor's queue, and more than what the kernel holds behind it.
constexpr std::size_t mostOnTheWay = 64 * 1024 + 16 * 1024;

} // namespace

PortionsByTurns::PortionsByTurns(USBModule& module)
{
    auto* const timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, [this, &module] {
        if (module.letTakePortion()) ++portions;
    });
    timer->start(0);
}

std::size_t PortionsByTurns::leastFor(std::size_t bytes)
{
    if (bytes <= mostOnTheWay) return 0;
    return (bytes - mostOnTheWay) / (USBModule::portion + USBModule::longestTransfer);
}

} // namespace orvim::test
