#include "core/tone/ToneDataMIDIFileBuilder.h"

#include "core/protocol/MIDIFileFormat.h"
#include "core/protocol/SimpleMIDIFileBuilder.h"
#include "core/protocol/SysExBuilder.h"
#include "core/tone/ToneDefaults.h"
#include "core/tone/ToneEditorBuilder.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

namespace tonavelle::ToneDataMIDIFileBuilder {

namespace {

using namespace std::string_view_literals;
using MIDIFileFormat::tempoMetaType;
using MIDIFileFormat::textMetaType;

constexpr std::uint8_t copyrightMetaType = 0x02;
constexpr std::uint8_t trackNameMetaType = 0x03;
constexpr std::uint8_t markerMetaType = 0x06;
constexpr std::uint8_t portMetaType = 0x21;
constexpr std::uint8_t timeSignatureMetaType = 0x58;

struct MetaRow {
    std::int64_t tick;
    std::uint8_t type;
    std::string_view data;
};

// The set-up runs at 60 beats a minute; a song that follows in the same file starts behind it at 120.
constexpr std::int64_t songStart = 1920;
constexpr std::array conductorRows{
    MetaRow{0, trackNameMetaType, ""},
    MetaRow{0, copyrightMetaType, "Copyright (C) 2025"},
    MetaRow{0, textMetaType, "---- Conductor Start --------------------------------------------------"},
    MetaRow{0, textMetaType, "memo"},
    MetaRow{0, tempoMetaType, "\x0F\x42\x40"}, // 1,000,000 microseconds
    MetaRow{0, markerMetaType, "Setup"},
    MetaRow{0, timeSignatureMetaType, "\x04\x02\x18\x08"},
    MetaRow{songStart, tempoMetaType, "\x07\xA1\x20"}, // 500,000 microseconds
    MetaRow{songStart, markerMetaType, "Start"},
    MetaRow{songStart, timeSignatureMetaType, "\x04\x02\x18\x08"},
};

constexpr std::string_view firstPort = "\0"sv;

constexpr std::string_view resetText = "---- Reset --------------------------------------------------";
constexpr std::string_view masterSettingText = "---- Master Setting ------------------------------";
constexpr std::string_view effectSettingText = "---- Effect Setting ------------------------------";
constexpr std::string_view endOfSystemSetupText = "---- End of System Setup ------------------------------";

constexpr std::int64_t uiTypeTick = 60;
constexpr std::int64_t japaneseModeTick = 120;
constexpr std::int64_t masterSettingTick = 180;
constexpr std::int64_t effectSettingTick = 190;
constexpr std::int64_t masterGroupInterval = 10;
constexpr std::int64_t userMessagesTick = 240;

constexpr std::string_view trackSetupText = "---- Track Setup ---------------------";
constexpr std::string_view gmSetupText = "---- GM Setup ------------------------";
constexpr std::string_view soundVariationText = "---- Sound Variation -----------------";
constexpr std::string_view soundDetailText = "---- Sound Detail --------------------";
constexpr std::string_view endOfChannelText = "---- End of CH Setup -----------------";

constexpr std::int64_t earliestChannelStart = 490;
constexpr std::int64_t stepInterval = 5;

class TrackWriter
{
public:
    void meta(std::int64_t tick, std::uint8_t type, std::string_view data)
    {
        Message message{MIDIFileFormat::metaStatus, type};
        const auto size = SimpleMIDIFileBuilder::variableLengthQuantity(static_cast<std::int64_t>(data.size()));
        message.insert(message.end(), size.begin(), size.end());
        message.insert(message.end(), data.begin(), data.end());
        add(tick, message);
    }

    void text(std::int64_t tick, std::string_view words) { meta(tick, textMetaType, words); }

    void add(std::int64_t tick, const Message& message) { track.events.push_back({tick, message}); }

    void add(std::int64_t tick, const Batch& batch)
    {
        for (const Message& message : batch)
            add(tick, message);
    }

    SimpleMIDITrack take() { return std::move(track); }

private:
    SimpleMIDITrack track;
};

/// What each track but the conductor begins with.
TrackWriter startedTrack(std::string_view name)
{
    TrackWriter track;
    track.meta(0, trackNameMetaType, name);
    track.meta(0, portMetaType, firstPort);
    return track;
}

SimpleMIDITrack conductorTrack()
{
    TrackWriter track;
    for (const MetaRow& row : conductorRows)
        track.meta(row.tick, row.type, row.data);
    return track.take();
}

/// Events of one tick keep the order of this list when the file is written.
SimpleMIDITrack systemSetupTrack(const MasterToneParameters& master, std::span<const Message> userMessages)
{
    TrackWriter track = startedTrack("System Setup");
    track.text(0, resetText);
    track.add(0, SysExBuilder::tonavelleReset());
    track.add(uiTypeTick, SysExBuilder::uiTypeSet(0));
    track.add(japaneseModeTick, SysExBuilder::japaneseCharacterMode(false));
    track.text(masterSettingTick, masterSettingText);
    track.text(effectSettingTick, effectSettingText);
    track.text(userMessagesTick, endOfSystemSetupText);

    std::int64_t tick = masterSettingTick;
    for (const Batch& group : ToneEditorBuilder::masterMessageGroups(master, 0)) {
        track.add(tick, group);
        tick += masterGroupInterval;
    }
    tick = userMessagesTick;
    for (const Message& message : userMessages)
        track.add(tick++, message);
    return track.take();
}

/// Appends the parts of a channel's set-up one step apart.
class ChannelTrackWriter
{
public:
    explicit ChannelTrackWriter(std::int64_t start) : tick(start) {}

    void text(std::string_view words)
    {
        track.text(tick, words);
        tick += stepInterval;
    }

    void group(const Batch& batch)
    {
        track.add(tick, batch);
        tick += stepInterval;
    }

    void groups(const MessageGroups& all)
    {
        for (const Batch& batch : all)
            group(batch);
    }

    SimpleMIDITrack take() { return track.take(); }

private:
    TrackWriter track = startedTrack("");
    std::int64_t tick;
};

SimpleMIDITrack channelTrack(int channel, const ChannelToneParameters& parameters, std::int64_t start)
{
    using namespace ToneEditorBuilder;
    ChannelTrackWriter track(start);
    track.text(trackSetupText);
    track.group(drumTrackSettingMessages(channel, parameters));
    track.text(gmSetupText);
    track.group(programSelectionMessages(channel, parameters));
    track.groups(gmBasicSetupMessageGroups(channel, parameters));
    track.text(soundVariationText);
    track.groups(soundVariationMessageGroups(channel, parameters));
    track.text(soundDetailText);
    if (sendsVoiceEdit(parameters)) track.groups(voiceEditMessageGroups(channel, parameters));
    track.text(endOfChannelText);
    return track.take();
}

} // namespace

std::vector<std::uint8_t> fileData(const MasterToneParameters& master, std::span<const ChannelToneParameters> channels,
                                   std::span<const Message> userMessages)
{
    const auto userMessagesEnd = userMessagesTick + static_cast<std::int64_t>(userMessages.size());
    const std::int64_t firstStart = std::max(userMessagesEnd + stepInterval, earliestChannelStart);

    std::vector<SimpleMIDITrack> tracks{conductorTrack(), systemSetupTrack(master, userMessages)};
    for (int channel = 0; channel < channelCount; ++channel) {
        const auto index = static_cast<std::size_t>(channel);
        if (index < channels.size())
            tracks.push_back(channelTrack(channel, channels[index], firstStart + channelInterval * channel));
        else
            tracks.push_back(startedTrack("").take());
    }
    return SimpleMIDIFileBuilder::file(1, ticksPerQuarterNote, tracks);
}

} // namespace tonavelle::ToneDataMIDIFileBuilder
