#include "core/tone/ToneDataMIDIImporter.h"

#include "core/protocol/MIDIFileFormat.h"
#include "core/protocol/MIDINumbers.h"

#include <algorithm>
#include <cstddef>
#include <tuple>
#include <utility>

namespace tonavelle::ToneDataMIDIImporter {

namespace {

struct OrderedEvent {
    std::int64_t time;
    std::int64_t key;
    const EventBytes* message;
};

/// Whether the model would take any notice of the message.
bool isOfInterest(const EventBytes& message)
{
    if (message.empty()) return false;
    const std::uint8_t status = message[0];
    const auto kind = static_cast<ChannelStatus>(status & 0xF0);
    return kind == ChannelStatus::programChange || kind == ChannelStatus::controlChange ||
           status == MIDIFileFormat::sysExStatus || status == MIDIFileFormat::sysExEnd;
}

/// All tracks as one stream: a track keeps its order at one tick, and lower tracks go first.
std::vector<OrderedEvent> eventsInTimeOrder(const SimpleMIDIFile& file)
{
    constexpr std::int64_t keysPerTrack = 1'000'000;
    std::vector<OrderedEvent> events;
    for (std::size_t track = 0; track < file.tracks.size(); ++track) {
        std::int64_t key = static_cast<std::int64_t>(track) * keysPerTrack;
        for (const SimpleMIDITimedEvent& event : file.tracks[track].events) {
            if (isOfInterest(event.message)) events.push_back({event.absoluteTime, key, &event.message});
            ++key;
        }
    }
    std::ranges::stable_sort(events, [](const OrderedEvent& a, const OrderedEvent& b) {
        return std::tie(a.time, a.key) < std::tie(b.time, b.key);
    });
    return events;
}

} // namespace

ImportedToneData importData(const SimpleMIDIFile& from, ImportedToneData initialState,
                            const ApplyPresetVoice& applyPresetVoice)
{
    ToneModuleModel module(std::move(initialState), applyPresetVoice);
    for (const OrderedEvent& event : eventsInTimeOrder(from))
        module.play(*event.message);
    return std::move(module).result();
}

} // namespace tonavelle::ToneDataMIDIImporter
