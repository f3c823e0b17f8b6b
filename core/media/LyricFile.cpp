#include "core/media/LyricFile.h"

#include "core/media/LyricsSysExBuilder.h"
#include "core/protocol/MIDIFileFormat.h"
#include "core/protocol/ModuleFrameContent.h"
#include "core/protocol/SimpleMIDIFileBuilder.h"
#include "core/protocol/SysExBuilder.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <string_view>
#include <tuple>
#include <utility>

namespace tonavelle {

namespace {

constexpr std::int64_t japaneseModeTick = 240;
constexpr std::uint16_t newFileTicksPerQuarterNote = 480;

/// The command whose keyword a text begins with.
std::optional<LyricsCommand> commandOfKeyword(std::string_view text)
{
    for (std::size_t number = 0; number < lyricsCommandNames.size(); ++number) {
        if (text.starts_with(lyricsCommandNames[number].keyword)) return static_cast<LyricsCommand>(number);
    }
    return std::nullopt;
}

std::optional<LyricsCommandAndText> commandOfText(std::uint8_t metaType, std::string_view text)
{
    if (const auto command = commandOfKeyword(text)) {
        if (!isAddCommand(*command)) return LyricsCommandAndText{*command, {}};
        text.remove_prefix(lyricsCommandNames[static_cast<std::size_t>(*command)].keyword.size());
        return LyricsCommandAndText{*command, std::string(text)};
    }
    if (metaType != MIDIFileFormat::lyricMetaType) return std::nullopt;
    return LyricsCommandAndText{LyricsCommand::addUpper, std::string(text)};
}

std::optional<LyricsCommandAndText> commandOf(const SimpleMIDITimedEvent& event)
{
    if (auto command = LyricsSysExBuilder::decodedCommand(event.message)) return command;
    const auto type = event.metaType();
    if (type != MIDIFileFormat::textMetaType && type != MIDIFileFormat::lyricMetaType) return std::nullopt;
    const auto text = event.text();
    return text ? commandOfText(*type, *text) : std::nullopt;
}

/// Whether a lyric row may have come from this event; saving the rows puts commands in its place.
bool isLyricEvent(const SimpleMIDITimedEvent& event)
{
    const auto type = event.metaType();
    if (type == MIDIFileFormat::lyricMetaType) return true;
    if (type == MIDIFileFormat::textMetaType) {
        const auto text = event.text();
        return text && commandOfKeyword(*text);
    }
    if (event.message.empty() || event.message[0] != MIDIFileFormat::sysExStatus) return false;
    const auto content = moduleFrameContent(event.message);
    if (!content) return false;
    const auto command = static_cast<Command>(content->front());
    return command == Command::japaneseCharacterDelete || command == Command::japaneseCharacterAdd;
}

/// The row's time from the start, without overflow: a bar below 0 counts as 0; the ticks may still lead below 0.
std::int64_t tickOf(const LyricsRow& row, std::int64_t ticksPerBar)
{
    constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
    const std::int64_t bar = std::max<std::int64_t>(row.bar, 0);
    if (ticksPerBar > 0 && bar > largest / ticksPerBar) return largest;
    const std::int64_t barTick = bar * ticksPerBar;
    return row.ticks > largest - barTick ? largest : barTick + row.ticks;
}

std::vector<std::uint8_t> editedFile(std::span<const LyricsRow> rows, bool addJapaneseModeOn, SimpleMIDIFile file,
                                     std::int64_t ticksPerBar)
{
    for (auto& track : file.tracks)
        std::erase_if(track.events, isLyricEvent);
    if (file.tracks.empty()) file.tracks.emplace_back();
    if (addJapaneseModeOn) {
        auto& events = file.tracks[file.tracks.size() > 1 ? 1 : 0].events;
        const SimpleMIDITimedEvent modeOn{japaneseModeTick, SysExBuilder::japaneseCharacterMode(true)};
        if (std::ranges::find(events, modeOn) == events.end()) events.push_back(modeOn);
    }
    for (const auto& row : rows) {
        const bool hasTrack = row.trackIndex >= 0 && row.trackIndex < std::ssize(file.tracks);
        auto& track = file.tracks[hasTrack ? static_cast<std::size_t>(row.trackIndex) : 0];
        track.events.push_back(
            {std::max<std::int64_t>(tickOf(row, ticksPerBar), 0), LyricsSysExBuilder::sysEx(row.command, row.text)});
    }
    return SimpleMIDIFileBuilder::file(file.format, file.ticksPerQuarterNote, file.tracks);
}

std::vector<std::uint8_t> newFile(std::span<const LyricsRow> rows, bool addJapaneseModeOn, std::int64_t ticksPerBar)
{
    std::vector<LyricsRow> sorted(rows.begin(), rows.end());
    std::ranges::stable_sort(sorted, {}, [&](const LyricsRow& row) { return tickOf(row, ticksPerBar); });
    std::vector<SimpleMIDITimedEvent> events;
    std::int64_t time = 0;
    if (addJapaneseModeOn) {
        time = japaneseModeTick;
        events.push_back({time, SysExBuilder::japaneseCharacterMode(true)});
    }
    for (const auto& row : sorted) {
        time = std::max(time, tickOf(row, ticksPerBar));
        events.push_back({time, LyricsSysExBuilder::sysEx(row.command, row.text)});
    }
    return SimpleMIDIFileBuilder::wpfStyleSequence(events, newFileTicksPerQuarterNote);
}

} // namespace

std::int64_t lyricsTicksPerBar(const SimpleMIDIFile& file)
{
    return file.ticksPerQuarterNote * 4;
}

std::vector<LyricsRow> readLyricRows(const SimpleMIDIFile& file)
{
    const std::int64_t ticksPerBar = std::max<std::int64_t>(lyricsTicksPerBar(file), 1);
    std::vector<LyricsRow> rows;
    for (std::size_t track = 0; track < file.tracks.size(); ++track) {
        for (const auto& event : file.tracks[track].events) {
            auto command = commandOf(event);
            if (!command) continue;
            rows.push_back({event.absoluteTime / ticksPerBar, event.absoluteTime % ticksPerBar,
                            static_cast<std::int64_t>(track), command->command, std::move(command->text)});
        }
    }
    std::ranges::stable_sort(rows, {}, [](const LyricsRow& row) { return std::tuple(row.bar, row.ticks); });
    return rows;
}

std::vector<std::uint8_t> buildLyricFile(std::span<const LyricsRow> rows, bool addJapaneseModeOn,
                                         std::optional<SimpleMIDIFile> opened, std::int64_t ticksPerBar)
{
    if (!opened) return newFile(rows, addJapaneseModeOn, ticksPerBar);
    return editedFile(rows, addJapaneseModeOn, std::move(*opened), ticksPerBar);
}

} // namespace tonavelle
