#pragma once

#include <optional>

namespace orvim::test {

/// The error of this type that the action ends with, or nothing when it ends well.
template <typename Error, typename Action>
std::optional<Error> thrown(const Action& action)
{
    try {
        action();
        return std::nullopt;
    } catch (const Error& error) {
        return error;
    }
}

} // namespace orvim::test
