#include "core/media/TransferMIDIFileBuilder.h"

#include "core/protocol/MIDIMessageBuilder.h"
#include "core/protocol/SysExBuilder.h"

#include <utility>

namespace tonavelle::TransferMIDIFileBuilder {

namespace {

constexpr std::int64_t second = ticksPerQuarterNote;

constexpr std::int64_t uiTypeSetTick = second;
constexpr std::int64_t firstImageRowTick = 599;
constexpr std::int64_t drawGap = 120; ///< from the tick behind the last row
constexpr std::uint8_t arbitraryImageType = 4;

constexpr std::int64_t firstSectionTick = second;
constexpr std::int64_t settingGap = 120; ///< from the tick behind the last section
constexpr std::int64_t settingSpacing = 100;

/// Collects events; long messages share memory.
class TimeLine
{
public:
    void add(std::int64_t tick, std::span<const std::uint8_t> message)
    {
        m_events.push_back({tick, m_arena.join(message, {}, {})});
    }

    std::vector<SimpleMIDITimedEvent> take() { return std::move(m_events); }

private:
    EventByteArena m_arena;
    std::vector<SimpleMIDITimedEvent> m_events;
};

} // namespace

std::vector<SimpleMIDITimedEvent> imageTransferEvents(std::span<const Batch> rowsByImage, bool writeReset,
                                                      bool writeUITypeSet, bool writeDrawCommand)
{
    TimeLine line;
    if (writeReset) line.add(0, SysExBuilder::tonavelleReset());
    if (writeUITypeSet) line.add(uiTypeSetTick, SysExBuilder::uiTypeSet(arbitraryImageType));
    std::int64_t tick = firstImageRowTick;
    for (const auto& rows : rowsByImage) {
        for (const auto& row : rows)
            line.add(tick++, row);
    }
    if (!writeDrawCommand) return line.take();
    tick += drawGap;
    for (std::size_t image = 0; image < rowsByImage.size(); ++image) {
        line.add(tick, SysExBuilder::imageDraw64x64(image & 0x7F));
        tick += second;
    }
    return line.take();
}

std::vector<SimpleMIDITimedEvent> samplingSoundEvents(std::span<const Message> sections,
                                                      std::span<const Message> settings, int soundCount,
                                                      bool writeReset, bool writePlayCommand)
{
    TimeLine line;
    if (writeReset) line.add(0, SysExBuilder::tonavelleReset());
    std::int64_t tick = firstSectionTick;
    for (const auto& section : sections)
        line.add(tick++, section);
    tick += settingGap;
    for (const auto& setting : settings) {
        line.add(tick, setting);
        tick += settingSpacing;
    }
    if (!writePlayCommand) return line.take();
    for (int sound = 0; sound < soundCount; ++sound) {
        for (const auto& message : MIDIMessageBuilder::samplingSoundPlay(sound))
            line.add(tick, message);
        tick += second;
    }
    return line.take();
}

} // namespace tonavelle::TransferMIDIFileBuilder
