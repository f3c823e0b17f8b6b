#pragma once

#include <cstdlib>

namespace orvim::test {

/// Stops the program where a promise is broken, so that the fuzzer keeps the input; in all kinds of build.
inline void require(bool holds)
{
    if (!holds) std::abort();
}

} // namespace orvim::test
