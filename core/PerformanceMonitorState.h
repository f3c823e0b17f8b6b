#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tonavelle {

/// What one MIDI channel is set to play, as the module's performance monitor lists it.
struct PerformanceMonitorPart {
    std::string name;         ///< UTF-8 label, such as "001:Piano 1"
    bool isUserBank = false;  ///< the part plays a user tone
    bool isDrum = false;      ///< the part plays a drum set
    std::uint8_t program = 0; ///< 0...127

    bool operator==(const PerformanceMonitorPart&) const = default;
};

/// The performance monitor's list: one part a MIDI channel, 16 unless somebody replaces `parts`.
struct PerformanceMonitorState {
    PerformanceMonitorState();

    /// Returns to the default: "001:Standard Set" on channel 10, "001:Piano 1" on all others.
    void reset();

    /// Gives the part at `index` (0 = channel 1) its four values, the program masked to seven bits.
    /// An index outside the list changes nothing.
    void setPart(int index, std::string_view name, bool isUserBank, bool isDrum, std::uint8_t program);

    /// Renames every user-bank part of that kind and program (compared in seven bits); true if there was one.
    bool updateUserPartNames(bool isDrum, std::uint8_t program, std::string_view name);

    /// One line such as "CH01 001:Piano 1", an apostrophe in place of the blank for a user-bank part;
    /// nothing for an index outside the list.
    std::optional<std::string> displayText(int index) const;

    std::vector<PerformanceMonitorPart> parts;

    bool operator==(const PerformanceMonitorState&) const = default;
};

} // namespace tonavelle
