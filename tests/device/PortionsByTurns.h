#pragma once

#include "usbmodule/USBModule.h"

#include <QObject>

namespace orvim::test {

/// Lets a module that takes portions take one with each turn of the window. So what is longer than all that can wait on
/// its way comes to an end only with a window that lives, on a fast machine as on a slow one.
class PortionsByTurns : public QObject
{
public:
    /// The module must outlive it.
    explicit PortionsByTurns(USBModule& module);

    /// The turns so far in which the module was let take a portion.
    std::size_t count() const { return portions; }
    /// How many there are at least when `bytes` have been sent.
    static std::size_t leastFor(std::size_t bytes);

private:
    std::size_t portions = 0;
};

} // namespace orvim::test
