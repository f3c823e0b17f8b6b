#pragma once

#include "core/media/LyricsSysExBuilder.h"
#include "core/protocol/SimpleMIDIFileBuilder.h"
#include "core/protocol/SimpleMIDIFileReader.h"
#include "platform/WholeFile.h"
#include "tests/app/support/PluggedRuntime.h"
#include "tests/app/support/RecordingDialogs.h"
#include "tests/support/Bytes.h"
#include "tests/support/MIDIFiles.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace orvim::test {

constexpr std::uint8_t textMeta = 0x01;
constexpr std::uint8_t lyricMeta = 0x05;

using SongEvents = std::vector<tonavelle::SimpleMIDITimedEvent>;

/// A song of one track, of format 1 and 480 ticks a quarter note.
inline tonavelle::SimpleMIDIFile songOf(SongEvents events)
{
    return {1, 480, {{std::move(events)}}};
}

/// A lyric each quarter note: "0", "1", "2" ...
inline tonavelle::SimpleMIDIFile songOfLyrics(int count)
{
    SongEvents events;
    for (int i = 0; i < count; ++i)
        events.push_back(metaEvent(480 * i, lyricMeta, std::to_string(i)));
    return songOf(std::move(events));
}

inline tonavelle::SimpleMIDITimedEvent commandEvent(std::int64_t time, tonavelle::LyricsCommand command,
                                                    std::string_view text = {})
{
    return {time, tonavelle::LyricsSysExBuilder::sysEx(command, text)};
}

/// What tests of the lyrics page work with: a module, dialogs without a window, and files of their own.
class LyricsPageTest : public testing::Test
{
protected:
    QString path(const QString& name) const { return folder.filePath(name); }

    QString write(const QString& name, const std::vector<std::uint8_t>& bytes) const
    {
        EXPECT_TRUE(writeWholeFile(path(name), bytes));
        return path(name);
    }

    QString write(const QString& name, const tonavelle::SimpleMIDIFile& song) const
    {
        return write(name, tonavelle::SimpleMIDIFileBuilder::file(song.format, song.ticksPerQuarterNote, song.tracks));
    }

    static tonavelle::SimpleMIDIFile read(const QString& path)
    {
        return tonavelle::SimpleMIDIFileReader::read(readWholeFile(path));
    }

    QString status() const { return plugged.runtime.midiOutManager().statusMessage(); }

    QTemporaryDir folder;
    PluggedRuntime plugged;
    RecordingDialogs dialogs;
};

} // namespace orvim::test
