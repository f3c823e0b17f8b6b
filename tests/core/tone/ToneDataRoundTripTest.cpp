#include "core/protocol/SimpleMIDIFileReader.h"
#include "core/tone/FactoryMelodyTable.h"
#include "core/tone/ToneDataFile.h"
#include "core/tone/ToneDataMIDIImporter.h"
#include "core/tone/ToneEditorBuilder.h"
#include "tests/core/tone/EditedInstrument.h"
#include "tests/support/Bytes.h"

#include <gmock/gmock.h>
#include <random>
#include <span>
#include <string>
#include <vector>

namespace tonavelle {
namespace {

using orvim::test::bytes;

constexpr auto drum = ToneDrumTrackSetting::drum;
constexpr auto user = ToneBankKind::user;

ToneInstrument writtenAndRead(const ToneInstrument& instrument, const DirtyOnlyFlags& flags)
{
    return readToneDataFile(toneDataFile(instrument, flags));
}

/// Instruments with every value drawn from its whole range, within what the file keeps.
class InstrumentGenerator
{
public:
    explicit InstrumentGenerator(unsigned seed) : engine(seed) {}

    ToneInstrument instrument()
    {
        ToneInstrument result = factoryToneInstrument();
        for (const ToneParameter& row : masterToneParameterRows())
            setValue(row, result.master, drawn(row));
        for (ChannelToneParameters& channel : result.channels)
            channel = keptInAFile(parameters());
        for (int i = drawn(0, 20); i > 0; --i)
            change(result.userMelodies[static_cast<std::size_t>(drawn(0, 127))]);
        for (int i = drawn(0, 20); i > 0; --i)
            changeDrum(result.userDrums[static_cast<std::size_t>(drawn(0, 127))]);
        result.drumSetName = name();
        for (std::int16_t& sample : result.userWaveforms[static_cast<std::size_t>(drawn(0, 3))])
            sample = static_cast<std::int16_t>(drawn(-32768, 32767));
        return result;
    }

private:
    int drawn(int lowest, int highest) { return std::uniform_int_distribution(lowest, highest)(engine); }
    int drawn(const ToneParameter& row) { return drawn(row.range.lowest, row.range.highest); }

    ChannelToneParameters parameters()
    {
        ChannelToneParameters result;
        for (const ToneParameter& row : channelToneParameterRows())
            setValue(row, result, drawn(row));
        return result;
    }

    /// A drum channel has program 0, and without a sound detail a channel keeps the first preset's sound.
    static ChannelToneParameters keptInAFile(ChannelToneParameters channel)
    {
        if (channel.drumTrackSetting == drum) channel.programChange = 0;
        if (!ToneEditorBuilder::sendsVoiceEdit(channel)) applyFactoryPreset(0, channel);
        return channel;
    }

    void changeSound(ChannelToneParameters& sound)
    {
        for (const ToneParameter& row : channelToneParameterRows())
            if (row.patchOffset != 0) setValue(row, sound, drawn(row));
    }

    void change(UserTonePatch& patch)
    {
        changeSound(patch.parameters);
        patch.name = name();
    }

    void changeDrum(UserTonePatch& patch)
    {
        changeSound(patch.parameters);
        patch.noteNumber = static_cast<std::uint8_t>(drawn(0, 127));
    }

    /// One to twelve printable characters, the last of them no blank.
    std::string name()
    {
        std::string result;
        for (int i = drawn(0, 11); i > 0; --i)
            result += static_cast<char>(drawn(32, 126));
        return result + static_cast<char>(drawn(33, 126));
    }

    std::mt19937 engine;
};

TEST(ToneDataRoundTrip, UntouchedInstrumentComesBackWithAnyFlags)
{
    EXPECT_EQ(writtenAndRead(factoryToneInstrument(), {}), factoryToneInstrument());
    EXPECT_EQ(writtenAndRead(factoryToneInstrument(), everything), factoryToneInstrument());
}

TEST(ToneDataRoundTrip, EditedInstrumentComesBack)
{
    EXPECT_EQ(writtenAndRead(test::editedInstrument(), {}), test::editedInstrument());
    EXPECT_EQ(writtenAndRead(test::editedInstrument(), everything), test::editedInstrument());
}

TEST(ToneDataRoundTrip, AnyInstrumentComesBackWithAnyFlags)
{
    for (unsigned seed = 0; seed < 40; ++seed) {
        const ToneInstrument instrument = InstrumentGenerator(seed).instrument();
        for (const bool melodies : {false, true})
            for (const bool drums : {false, true})
                for (const bool waves : {false, true})
                    EXPECT_EQ(writtenAndRead(instrument, {melodies, drums, waves}), instrument) << "seed " << seed;
    }
}

TEST(ToneDataRoundTrip, SoundOfADrumOrUserChannelComesBackAsThePiano)
{
    ToneInstrument instrument = factoryToneInstrument();
    instrument.channels[0] = ChannelToneParameters({.drumTrackSetting = drum, .waveType = 3, .attack = 9, .volume = 5});
    instrument.channels[1] = ChannelToneParameters({.bankKind = user, .programChange = 8, .waveType = 3, .attack = 9});
    const ToneInstrument read = writtenAndRead(instrument, {});
    EXPECT_EQ(read.channels[0], ChannelToneParameters({.drumTrackSetting = drum, .volume = 5}));
    EXPECT_EQ(read.channels[1], ChannelToneParameters({.bankKind = user, .programChange = 8}));
}

TEST(ToneDataRoundTrip, ProgramOfADrumChannelComesBackAsZero)
{
    ToneInstrument instrument = factoryToneInstrument();
    instrument.channels[0] = ChannelToneParameters({.drumTrackSetting = drum, .programChange = 8});
    EXPECT_EQ(writtenAndRead(instrument, {}).channels[0], ChannelToneParameters({.drumTrackSetting = drum}));
}

TEST(ToneDataRoundTrip, PresetProgramComesBackAbsent)
{
    ToneInstrument instrument = factoryToneInstrument();
    instrument.userMelodies[3].name = "Mine";
    instrument.userMelodies[3].presetProgram = 7;
    const UserTonePatch read = writtenAndRead(instrument, {}).userMelodies[3];
    EXPECT_EQ(read.name, "Mine");
    EXPECT_FALSE(read.presetProgram.has_value());
}

TEST(ToneDataRoundTrip, NameOfADrumNoteComesBackAsTheFactorys)
{
    ToneInstrument instrument = factoryToneInstrument();
    instrument.userDrums[38].name = "Mine";
    instrument.userDrums[38].noteNumber = 1;
    const UserTonePatch read = writtenAndRead(instrument, {}).userDrums[38];
    EXPECT_EQ(read.name, "Acoustic Snare");
    EXPECT_EQ(read.noteNumber, 1);
}

TEST(ToneDataRoundTrip, NamesLoseWhatTheModuleCannotKeep)
{
    ToneInstrument instrument = factoryToneInstrument();
    instrument.userMelodies[0].name = "ABCDEFGHIJKLMN";
    instrument.userMelodies[1].name = "aあb";
    instrument.userMelodies[2].name = "Pad   ";
    instrument.drumSetName = "キット 2 ";
    const ToneInstrument read = writtenAndRead(instrument, {});
    EXPECT_EQ(read.userMelodies[0].name, "ABCDEFGHIJKL");
    EXPECT_EQ(read.userMelodies[1].name, "a b");
    EXPECT_EQ(read.userMelodies[2].name, "Pad");
    EXPECT_EQ(read.drumSetName, "    2");
}

TEST(ToneDataRoundTrip, OtherValuesOfAUserPatchComeBackAsDefault)
{
    ToneInstrument instrument = factoryToneInstrument();
    instrument.userMelodies[3].parameters = ChannelToneParameters({.attack = 7, .volume = 1, .panpot = 3});
    instrument.userDrums[38].parameters.cutOff = 5;
    const ToneInstrument read = writtenAndRead(instrument, {});
    EXPECT_EQ(read.userMelodies[3].parameters, ChannelToneParameters({.attack = 7}));
    EXPECT_EQ(read.userDrums[38], factoryToneInstrument().userDrums[38]);
}

TEST(ToneDataRoundTrip, NoteNumberOfAMelodyComesBackAsZero)
{
    ToneInstrument instrument = factoryToneInstrument();
    instrument.userMelodies[3].noteNumber = 60;
    EXPECT_EQ(writtenAndRead(instrument, everything), factoryToneInstrument());
}

TEST(ToneDataRoundTrip, WhatSetsNoFieldIsWrittenAndNotRead)
{
    const std::vector<Message> messages{
        bytes("F0 00 48 05 7F 00 00 F7"), // the reset
        bytes("F0 00 48 05 7F 03 00 F7"), // the main screen
        bytes("F0 00 48 05 7F 05 00 F7"), // no Japanese characters
        bytes("B0 01 00"),                // the modulation
        bytes("E0 00 40"),                // the pitch bend
        bytes("B0 65 7F"),                // the null RPN
        bytes("B0 64 7F"),
    };
    const SimpleMIDIFile file = SimpleMIDIFileReader::read(toneDataFile(factoryToneInstrument(), {}));
    std::vector<Message> written;
    for (const SimpleMIDITrack& track : file.tracks)
        for (const SimpleMIDITimedEvent& event : track.events)
            written.emplace_back(event.message.begin(), event.message.end());
    SimpleMIDIFile alone;
    alone.tracks.emplace_back();
    for (const Message& message : messages) {
        EXPECT_THAT(written, testing::Contains(message));
        alone.tracks[0].events.push_back({0, message});
    }
    EXPECT_EQ(ToneDataMIDIImporter::importData(alone, factoryToneData(), applyFactoryPreset), factoryToneData());
}

TEST(ToneDataRoundTrip, BytesThatAreNoMIDIFileAreRefused)
{
    const std::vector<std::uint8_t> whole = toneDataFile(factoryToneInstrument(), {});
    EXPECT_THROW(readToneDataFile({}), SimpleMIDIFileReaderError);
    EXPECT_THROW(readToneDataFile(std::span(whole).first(whole.size() - 1)), SimpleMIDIFileReaderError);
}

} // namespace
} // namespace tonavelle
