#include "core/PerformanceMonitorState.h"

#include <cstddef>
#include <cstdio>

namespace tonavelle {

namespace {

constexpr std::size_t channelCount = 16;
constexpr std::size_t drumChannel0 = 9;
constexpr std::uint8_t sevenBits = 0x7F;

bool holds(const std::vector<PerformanceMonitorPart>& parts, int index)
{
    return index >= 0 && static_cast<std::size_t>(index) < parts.size();
}

} // namespace

PerformanceMonitorState::PerformanceMonitorState()
{
    reset();
}

void PerformanceMonitorState::reset()
{
    parts.assign(channelCount, {.name = "001:Piano 1"});
    parts[drumChannel0] = {.name = "001:Standard Set", .isDrum = true};
}

void PerformanceMonitorState::setPart(int index, std::string_view name, bool isUserBank, bool isDrum,
                                      std::uint8_t program)
{
    if (!holds(parts, index)) return;
    parts[static_cast<std::size_t>(index)] = {
        .name = std::string(name),
        .isUserBank = isUserBank,
        .isDrum = isDrum,
        .program = static_cast<std::uint8_t>(program & sevenBits),
    };
}

bool PerformanceMonitorState::updateUserPartNames(bool isDrum, std::uint8_t program, std::string_view name)
{
    bool changed = false;
    for (auto& part : parts) {
        const bool sameTone = (part.program & sevenBits) == (program & sevenBits);
        if (!part.isUserBank || part.isDrum != isDrum || !sameTone) continue;
        part.name = name;
        changed = true;
    }
    return changed;
}

std::optional<std::string> PerformanceMonitorState::displayText(int index) const
{
    if (!holds(parts, index)) return std::nullopt;
    const auto& part = parts[static_cast<std::size_t>(index)];
    char channel[8];
    std::snprintf(channel, sizeof channel, "CH%02d", (index + 1) % 1000);
    return channel + std::string(part.isUserBank ? "'" : " ") + part.name;
}

} // namespace tonavelle
