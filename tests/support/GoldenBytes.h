#pragma once

#include "tests/support/Bytes.h"

#include <cstdint>
#include <fstream>
#include <gtest/gtest.h>
#include <span>
#include <string>

namespace orvim::test {

/// Whether `actual` is what a file below tests/ holds: hexadecimal bytes, from a '#' to the line's end a remark.
/// The failure names the first byte that differs and the line that it stands in.
inline testing::AssertionResult matchesGolden(std::span<const std::uint8_t> actual, const std::string& path)
{
    std::ifstream file(std::string(ORVIM_SOURCE_DIR) + "/tests/" + path);
    if (!file) return testing::AssertionFailure() << "cannot open " << path;
    std::size_t offset = 0;
    std::size_t lineNumber = 0;
    for (std::string line; std::getline(file, line);) {
        ++lineNumber;
        for (const std::uint8_t expected : bytes(line.substr(0, line.find('#')))) {
            if (offset >= actual.size() || actual[offset] != expected)
                return testing::AssertionFailure()
                       << path << ":" << lineNumber << " differs at byte " << offset << ": expected "
                       << static_cast<int>(expected) << ", found "
                       << (offset < actual.size() ? std::to_string(actual[offset]) : "the end");
            ++offset;
        }
    }
    if (offset != actual.size()) return testing::AssertionFailure() << path << " ends at byte " << offset;
    return testing::AssertionSuccess();
}

} // namespace orvim::test
