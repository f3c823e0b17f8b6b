#include "core/tone/ToneDataMIDIImporter.h"

#include "core/protocol/SimpleMIDIFileBuilder.h"
#include "core/protocol/SimpleMIDIFileReader.h"
#include "core/tone/FactoryMelodyTable.h"
#include "core/tone/ToneInstrument.h"
#include "core/tone/ToneModuleModel.h"
#include "core/tone/UserWaveformBuilder.h"
#include "tests/core/tone/NumberedSound.h"
#include "tests/support/Bytes.h"
#include "tests/support/MIDIFiles.h"

#include <gtest/gtest.h>
#include <initializer_list>
#include <string_view>
#include <vector>

namespace tonavelle {
namespace {

using orvim::test::bytes;
using orvim::test::joined;

struct Event {
    std::int64_t time;
    std::string_view hex;
};

SimpleMIDITrack track(std::initializer_list<Event> events)
{
    SimpleMIDITrack result;
    for (const Event& event : events)
        result.events.push_back({event.time, bytes(event.hex)});
    return result;
}

ImportedToneData imported(const SimpleMIDIFile& file, ImportedToneData base = factoryToneData())
{
    return ToneDataMIDIImporter::importData(file, std::move(base), applyFactoryPreset);
}

ImportedToneData importedMessage(const Message& message, ImportedToneData base = factoryToneData())
{
    SimpleMIDIFile file;
    file.tracks.push_back({{{0, message}}});
    return imported(file, std::move(base));
}

/// The import of one track whose messages stand a tick apart.
ImportedToneData importedMessages(std::initializer_list<std::string_view> messages,
                                  ImportedToneData base = factoryToneData())
{
    SimpleMIDIFile file;
    file.tracks.emplace_back();
    for (const std::string_view message : messages)
        file.tracks[0].events.push_back(
            {static_cast<std::int64_t>(file.tracks[0].events.size()), EventBytes(bytes(message))});
    return imported(file, std::move(base));
}

const ChannelToneParameters& channel(const ImportedToneData& data, std::size_t number)
{
    return data.channels.at(number - 1);
}

TEST(ToneDataMIDIImporter, EmptyFileGivesTheBase)
{
    EXPECT_EQ(imported({}), factoryToneData());
}

TEST(ToneDataMIDIImporter, MelodySongSetsWhatItsControllersAndProgramsSayAndNothingElse)
{
    const ImportedToneData data =
        importedMessages({"FF 03 04 53 6F 6E 67", "FF 51 03 07 A1 20", "C1 10", "B1 07 50", "91 3C 64", "E1 00 50",
                          "D1 40", "A1 3C 10", "81 3C 00", "B1 01 7F", "B1 40 7F", "FE"});
    ImportedToneData expected = factoryToneData();
    expected.channels[1].programChange = 16;
    applyFactoryPreset(16, expected.channels[1]);
    expected.channels[1].volume = 80;
    EXPECT_EQ(data, expected);
}

TEST(ToneDataMIDIImporter, LowerTrackGoesFirstAtOneTick)
{
    const auto program = track({{0, "FF 03 00"}, {480, "C0 05"}});
    const auto bank = track({{480, "B0 00 10"}});
    SimpleMIDIFile file;
    file.tracks = {{}, program, bank};
    ImportedToneData data = imported(file);
    EXPECT_EQ(channel(data, 1).waveType, factoryMelodyPresets()[5].waveType);
    EXPECT_EQ(channel(data, 1).ringModGain, factoryMelodyPresets()[5].ringModGain)
        << "the program change came before the bank and loaded the preset";
    EXPECT_EQ(channel(data, 1).bankKind, ToneBankKind::user);

    file.tracks = {{}, bank, program};
    data = imported(file);
    EXPECT_EQ(channel(data, 1).ringModGain, factoryMelodyPresets()[0].ringModGain)
        << "in the user bank no preset is loaded";
}

TEST(ToneDataMIDIImporter, TimeGoesBeforeTrack)
{
    SimpleMIDIFile file;
    file.tracks = {track({{2, "B0 07 01"}}), track({{1, "B0 07 02"}, {3, "B0 0B 03"}})};
    EXPECT_EQ(channel(imported(file), 1).volume, 1);
}

TEST(ToneDataMIDIImporter, TrackKeepsItsOrderAtOneTick)
{
    SimpleMIDIFile file;
    file.tracks = {track({{5, "B0 07 01"}, {5, "B0 07 02"}, {5, "B0 07 03"}})};
    EXPECT_EQ(channel(imported(file), 1).volume, 3);
}

TEST(ToneDataMIDIImporter, DataEntryBeforeAnySelectionHasNoEffect)
{
    EXPECT_EQ(importedMessages({"B0 06 05", "B0 26 05"}), factoryToneData());
    EXPECT_EQ(importedMessages({"B0 63 02", "B0 06 05"}), factoryToneData()) << "half a selection is none";
    EXPECT_EQ(importedMessages({"B0 62 00", "B0 06 05"}), factoryToneData());
    EXPECT_EQ(importedMessages({"B0 65 00", "B0 06 05", "B0 26 05"}), factoryToneData());
    EXPECT_EQ(importedMessages({"B0 64 00", "B0 06 05", "B0 26 05"}), factoryToneData());
}

TEST(ToneDataMIDIImporter, LowDataByteAloneAfterAnNrpnSelectionHasNoEffect)
{
    EXPECT_EQ(importedMessages({"B0 63 02", "B0 62 00", "B0 26 05"}), factoryToneData());
}

TEST(ToneDataMIDIImporter, ReleaseFlagIsSetByZeroAlone)
{
    EXPECT_FALSE(channel(importedMessages({"B0 63 06", "B0 62 0A", "B0 06 7F"}), 1).isReleaseActive);
    EXPECT_FALSE(channel(importedMessages({"B0 63 06", "B0 62 0A", "B0 06 01"}), 1).isReleaseActive);
    EXPECT_TRUE(channel(importedMessages({"B0 63 06", "B0 62 0A", "B0 06 01", "B0 06 00"}), 1).isReleaseActive);
}

TEST(ToneDataMIDIImporter, ProgramChangeOnADrumChannelLeavesProgramZero)
{
    EXPECT_EQ(channel(importedMessages({"C9 05"}), 10).programChange, 0);
    EXPECT_EQ(importedMessages({"C9 05"}), factoryToneData());
}

TEST(ToneDataMIDIImporter, BecomingADrumChannelForcesProgramZero)
{
    const ImportedToneData data = importedMessages({"C0 05", "B0 63 0A", "B0 62 00", "B0 06 01"});
    EXPECT_EQ(channel(data, 1).drumTrackSetting, ToneDrumTrackSetting::drum);
    EXPECT_EQ(channel(data, 1).programChange, 0);
    EXPECT_EQ(channel(importedMessages({"B9 63 0A", "B9 62 00", "B9 06 02"}), 10).drumTrackSetting,
              ToneDrumTrackSetting::melody);
}

TEST(ToneDataMIDIImporter, ChannelBeyondTheBaseIsIgnoredButHasItsParseState)
{
    ImportedToneData base = factoryToneData();
    base.channels.resize(15);
    EXPECT_EQ(importedMessages({"CF 05", "BF 07 01", "BF 00 10"}, base), base);
    EXPECT_EQ(ToneModuleModel(base, {}).parseStates().size(), 16u);
}

TEST(ToneDataMIDIImporter, ParseStateBeginsInTheBankOfItsChannel)
{
    ImportedToneData base = factoryToneData();
    base.channels.resize(17);
    base.channels[3].bankKind = ToneBankKind::user;
    const ToneModuleModel module(base, {});
    EXPECT_EQ(module.parseStates().size(), 17u);
    EXPECT_EQ(module.parseStates()[3], (ChannelParseState{.bankSelectMSB = 16}));
    EXPECT_EQ(module.parseStates()[4], ChannelParseState());
    EXPECT_EQ(channel(importedMessages({"C3 07"}, base), 4).bankKind, ToneBankKind::user);
}

TEST(ToneDataMIDIImporter, UserBankNeedsBothBankNumbers)
{
    EXPECT_EQ(channel(importedMessages({"B0 00 10"}), 1).bankKind, ToneBankKind::user);
    EXPECT_EQ(channel(importedMessages({"B0 00 10", "B0 20 01"}), 1).bankKind, ToneBankKind::preset);
    EXPECT_EQ(channel(importedMessages({"B0 00 10", "B0 20 01", "B0 20 00"}), 1).bankKind, ToneBankKind::user);
    EXPECT_EQ(channel(importedMessages({"B0 00 11"}), 1).bankKind, ToneBankKind::preset);
}

TEST(ToneDataMIDIImporter, ProgramChangeLoadsThePresetAndTheDetailLandsOnTop)
{
    const ImportedToneData data = importedMessages({"B0 49 63", "C0 59", "B0 4B 01"});
    EXPECT_EQ(channel(data, 1).attack, 127) << "the Warm Pad's";
    EXPECT_EQ(channel(data, 1).decay, 1) << "what came behind the program change";
    EXPECT_EQ(channel(data, 1).programChange, 89);
}

TEST(ToneDataMIDIImporter, WithoutAPresetVoiceAProgramChangeKeepsTheSound)
{
    SimpleMIDIFile file;
    file.tracks = {track({{0, "C0 59"}})};
    const ImportedToneData data = ToneDataMIDIImporter::importData(file, factoryToneData(), {});
    EXPECT_EQ(channel(data, 1).attack, 0);
    EXPECT_EQ(channel(data, 1).programChange, 89);
}

TEST(ToneDataMIDIImporter, ProgramChangeKeepsSevenBits)
{
    EXPECT_EQ(channel(importedMessages({"C0 85"}), 1).programChange, 5);
}

TEST(ToneDataMIDIImporter, ControllersSetTheirFields)
{
    const ImportedToneData data =
        importedMessages({"B2 0A 00", "B2 0B 01", "B2 47 02", "B2 48 03", "B2 49 04", "B2 4A 7F", "B2 4B 06",
                          "B2 4C 40", "B2 5B 08", "B2 5D 09", "B2 5E 0A"});
    EXPECT_EQ(channel(data, 3), ChannelToneParameters({.attack = 4,
                                                       .decay = 6,
                                                       .release = 3,
                                                       .reverbSend = 8,
                                                       .chorusSend = 9,
                                                       .delaySend = 10,
                                                       .cutOff = 63,
                                                       .resonance = -62,
                                                       .expression = 1,
                                                       .panpot = -64,
                                                       .vibratoRate = 0}));
}

TEST(ToneDataMIDIImporter, ControllersAndTheirValuesKeepSevenBits)
{
    EXPECT_EQ(channel(importedMessages({"B0 87 D0"}), 1).volume, 80);
    EXPECT_EQ(importedMessages({"B0 87 D0"}), importedMessages({"B0 07 50"}));
    EXPECT_EQ(importedMessages({"B0 E3 82", "B0 E2 80", "B0 86 85"}),
              importedMessages({"B0 63 02", "B0 62 00", "B0 06 05"}));
}

TEST(ToneDataMIDIImporter, AMegabyteOfControllersEndsOnTheLastValues)
{
    const auto length = SimpleMIDIFileBuilder::encodeUInt32BigEndian(1'200'001);
    Message data = joined({bytes("4D 54 68 64 00 00 00 06 00 01 00 01 01 E0 4D 54 72 6B"),
                           {length.begin(), length.end()},
                           bytes("00 B0 07 00")});
    for (std::uint32_t i = 1; i < 400'000; ++i)
        data.insert(data.end(), {0x00, 0x07, static_cast<std::uint8_t>(i & 0x7F)});
    const SimpleMIDIFile file = SimpleMIDIFileReader::read(data);
    ASSERT_EQ(file.tracks.at(0).events.size(), 400'000u);
    ImportedToneData expected = factoryToneData();
    expected.channels[0].volume = 399'999 & 0x7F;
    EXPECT_EQ(imported(file), expected);
}

TEST(ToneDataMIDIImporter, ControllersWithoutAFieldAreIgnored)
{
    for (int controller = 0; controller < 128; ++controller) {
        const bool isKnown = (controller >= 71 && controller <= 76) || controller == 7 || controller == 10 ||
                             controller == 11 || controller == 91 || controller == 93 || controller == 94;
        if (isKnown || controller == 0) continue;
        SimpleMIDIFile file;
        file.tracks.emplace_back();
        file.tracks[0].events.push_back({0, {0xB0, static_cast<std::uint8_t>(controller), 0x05}});
        EXPECT_EQ(imported(file), factoryToneData()) << "controller " << controller;
    }
}

TEST(ToneDataMIDIImporter, FineTuningWaitsForItsLowByte)
{
    EXPECT_EQ(channel(importedMessages({"B0 65 00", "B0 64 01", "B0 06 7F"}), 1).fineTuning, 0);
    EXPECT_EQ(channel(importedMessages({"B0 65 00", "B0 64 01", "B0 06 7F", "B0 26 7F"}), 1).fineTuning, 8191);
    EXPECT_EQ(channel(importedMessages({"B0 65 00", "B0 64 01", "B0 06 00", "B0 26 00"}), 1).fineTuning, -8192);
}

TEST(ToneDataMIDIImporter, CoarseTuningAndBendTakeTheirHighByteAtOnce)
{
    EXPECT_EQ(channel(importedMessages({"B0 65 00", "B0 64 02", "B0 06 00"}), 1).coarseTuning, -64);
    EXPECT_EQ(channel(importedMessages({"B0 65 00", "B0 64 00", "B0 06 18"}), 1).pitchBendSensitivity, 24);
    const ImportedToneData data =
        importedMessages({"B0 65 00", "B0 64 02", "B0 06 41", "B0 26 7F", "B0 64 00", "B0 26 01"});
    EXPECT_EQ(channel(data, 1).coarseTuning, 1) << "the low byte repeats the high one";
    EXPECT_EQ(channel(data, 1).pitchBendSensitivity, 65) << "taken from the last high byte, whatever it was sent for";
}

TEST(ToneDataMIDIImporter, NullParameterTakesNoData)
{
    EXPECT_EQ(importedMessages({"B0 65 7F", "B0 64 7F", "B0 06 05", "B0 26 05"}), factoryToneData());
    EXPECT_EQ(importedMessages({"B0 65 01", "B0 64 00", "B0 06 05", "B0 26 05"}), factoryToneData());
}

TEST(ToneDataMIDIImporter, LastSelectingControllerDecidesBetweenNrpnAndRpn)
{
    const ImportedToneData nrpn = importedMessages({"B0 65 00", "B0 64 00", "B0 63 02", "B0 62 00", "B0 06 05"});
    EXPECT_EQ(channel(nrpn, 1).waveType, 5);
    EXPECT_EQ(channel(nrpn, 1).pitchBendSensitivity, 2);
    const ImportedToneData rpn = importedMessages({"B0 63 02", "B0 62 00", "B0 65 00", "B0 64 00", "B0 06 05"});
    EXPECT_EQ(channel(rpn, 1).waveType, 0);
    EXPECT_EQ(channel(rpn, 1).pitchBendSensitivity, 5);
}

TEST(ToneDataMIDIImporter, MasterValuesAreTakenFromAnyChannel)
{
    const ImportedToneData data =
        importedMessages({"B5 63 07", "B5 62 14", "B5 06 02", "B5 62 0A", "B5 06 01", "B5 62 0B", "B5 06 03",
                          "B5 62 00", "B5 06 04", "B5 62 01", "B5 06 05"});
    EXPECT_EQ(data.master,
              MasterToneParameters(
                  {.reverbType = 2, .chorusDepth = 1, .chorusFrequency = 3, .delayTime = 4, .delayFeedbackGain = 5}));
}

TEST(ToneDataMIDIImporter, NrpnSetsTheSoundAndItsVariation)
{
    const ImportedToneData data = importedMessages(
        {"B0 63 02", "B0 62 00", "B0 06 0B", "B0 62 01", "B0 06 0C", "B0 62 02", "B0 06 01", "B0 63 03", "B0 62 00",
         "B0 06 02", "B0 62 01", "B0 06 03", "B0 63 04", "B0 62 00", "B0 06 00", "B0 62 01", "B0 06 04", "B0 63 06",
         "B0 62 00", "B0 06 05", "B0 62 01", "B0 06 06", "B0 63 08", "B0 62 00", "B0 06 03", "B0 62 01", "B0 06 07",
         "B0 62 02", "B0 06 08", "B0 63 09", "B0 62 00", "B0 06 09", "B0 62 01", "B0 06 00"});
    EXPECT_EQ(channel(data, 1), ChannelToneParameters({.waveType = 11,
                                                       .waveNumber = 12,
                                                       .ringModMultiply = 2,
                                                       .ringModGain = 3,
                                                       .sweepType = 0,
                                                       .sweepSpeed = 4,
                                                       .sustainLevel = 6,
                                                       .sustainRate = 5,
                                                       .outputGain = 1,
                                                       .distortionType = 3,
                                                       .distortionLevel = 7,
                                                       .distortionGain = 8,
                                                       .unisonNumber = 9,
                                                       .unisonDetune = -64}));
}

TEST(ToneDataMIDIImporter, UnlistedNrpnIsIgnored)
{
    EXPECT_EQ(importedMessages({"B0 63 05", "B0 62 00", "B0 06 05", "B0 63 02", "B0 62 03", "B0 06 05"}),
              factoryToneData());
}

TEST(ToneDataMIDIImporter, ValuesAreStoredWithoutTheEditorsLimits)
{
    EXPECT_EQ(channel(importedMessages({"B0 63 02", "B0 62 00", "B0 06 7F"}), 1).waveType, 127);
}

TEST(ToneDataMIDIImporter, ShortMessagesAreIgnored)
{
    EXPECT_EQ(importedMessages({"", "C0", "B0", "B0 07", "F0", "F7"}), factoryToneData());
}

TEST(ToneDataMIDIImporter, MasterVolumeComesFromTheUniversalMessage)
{
    EXPECT_EQ(importedMessages({"F0 7F 7F 04 01 00 45 F7"}).master.masterVolume, 0x45);
    EXPECT_EQ(importedMessages({"F0 7F 7F 04 01 00 C5 F7"}).master.masterVolume, 0x45);
    EXPECT_EQ(importedMessages({"F0 7F 7F 04 01 01 45 F7"}), factoryToneData()) << "its low byte is 0";
    EXPECT_EQ(importedMessages({"F0 7F 7F 04 01 00 F7"}), factoryToneData()) << "too short";
}

constexpr std::string_view melodyPatch = "F0 00 48 05 7F 40 00 00 05 00 01 01 02 03 04 00 06 07 08 09 0A 0B 0C 0D F7";
constexpr std::string_view drumPatch = "F0 00 48 05 7F 40 01 00 05 26 01 01 02 03 04 00 06 07 08 09 0A 0B 0C 0D F7";

TEST(ToneDataMIDIImporter, PatchParametersSetASoundAndNothingElse)
{
    ImportedToneData expected = factoryToneData();
    expected.userMelodies[5].parameters = test::numberedSound();
    EXPECT_EQ(importedMessages({melodyPatch}), expected) << "the note number of a melody stays 0";
    expected = factoryToneData();
    expected.userDrums[38].parameters = test::numberedSound();
    expected.userDrums[38].noteNumber = 12;
    EXPECT_EQ(importedMessages({drumPatch}), expected);
}

constexpr std::string_view melodyName = "F0 00 48 05 7F 41 00 00 05 50 61 64 20 20 20 20 20 20 20 20 20 F7";
constexpr std::string_view drumSetName = "F0 00 48 05 7F 41 01 00 05 4B 69 74 20 20 20 20 20 20 20 20 20 F7";

TEST(ToneDataMIDIImporter, TopBitsOfAPatchMessageDoNotCount)
{
    for (const std::string_view hex : {melodyPatch, drumPatch, melodyName, drumSetName}) {
        const Message plain = bytes(hex);
        Message raised = plain;
        for (std::size_t i = 6; i + 1 < raised.size(); ++i)
            raised[i] |= 0x80;
        EXPECT_EQ(importedMessage(raised), importedMessage(plain)) << hex;
        EXPECT_NE(importedMessage(plain), factoryToneData()) << hex;
    }
}

TEST(ToneDataMIDIImporter, ReleaseFlagOfAPatchIsSetByZeroInTheLowSevenBits)
{
    ImportedToneData base = factoryToneData();
    base.userMelodies[5].parameters.isReleaseActive = false;
    Message patch = bytes(melodyPatch);
    for (const std::uint8_t flag : bytes("00 80")) {
        patch[10] = flag;
        EXPECT_TRUE(importedMessage(patch, base).userMelodies[5].parameters.isReleaseActive) << int(flag);
    }
    for (const std::uint8_t flag : bytes("01 7F 81")) {
        patch[10] = flag;
        EXPECT_FALSE(importedMessage(patch, base).userMelodies[5].parameters.isReleaseActive) << int(flag);
    }
}

TEST(ToneDataMIDIImporter, PatchKeepsItsOtherValues)
{
    ImportedToneData base = factoryToneData();
    base.userMelodies[5].parameters.volume = 3;
    base.userMelodies[5].noteNumber = 60;
    const ImportedToneData data = importedMessages({melodyPatch}, base);
    EXPECT_EQ(data.userMelodies[5].parameters.volume, 3);
    EXPECT_EQ(data.userMelodies[5].noteNumber, 0);
}

TEST(ToneDataMIDIImporter, PatchMessageOf24BytesIsIgnoredAndOneOf26IsRead)
{
    EXPECT_EQ(importedMessages({"F0 00 48 05 7F 40 00 00 05 00 01 01 02 03 04 00 06 07 08 09 0A 0B 0C F7"}),
              factoryToneData());
    EXPECT_EQ(importedMessages({"F0 00 48 05 7F 40 00 00 05 00 01 01 02 03 04 00 06 07 08 09 0A 0B 0C 0D 0E F7"}),
              importedMessages({melodyPatch}));
}

TEST(ToneDataMIDIImporter, PatchOfAnUnknownClassOrBeyondTheListIsIgnored)
{
    EXPECT_EQ(importedMessages({"F0 00 48 05 7F 40 02 00 05 26 01 01 02 03 04 00 06 07 08 09 0A 0B 0C 0D F7"}),
              factoryToneData());
    ImportedToneData base = factoryToneData();
    base.userMelodies.resize(5);
    base.userDrums.clear();
    EXPECT_EQ(importedMessages({melodyPatch, drumPatch}, base), base);
}

TEST(ToneDataMIDIImporter, PatchNameLosesItsTrailingBlanks)
{
    const ImportedToneData data =
        importedMessages({"F0 00 48 05 7F 41 00 00 05 20 41 20 42 20 20 20 20 20 20 20 20 F7"});
    EXPECT_EQ(data.userMelodies[5].name, " A B");
    EXPECT_EQ(importedMessages({"F0 00 48 05 7F 41 00 00 05 20 41 20 42 20 20 20 20 20 20 20 F7"}), factoryToneData())
        << "21 bytes are too few";
}

TEST(ToneDataMIDIImporter, NameOfTwelveBlanksIsTheEmptyName)
{
    const ImportedToneData melody =
        importedMessages({"F0 00 48 05 7F 41 00 00 05 20 20 20 20 20 20 20 20 20 20 20 20 F7"});
    EXPECT_EQ(melody.userMelodies[5].name, "");
    const ImportedToneData drum =
        importedMessages({"F0 00 48 05 7F 41 01 00 05 20 20 20 20 20 20 20 20 20 20 20 20 F7"});
    EXPECT_EQ(drum.userDrumName, "");
    EXPECT_EQ(toneInstrument(drum).drumSetName, "User Drum");
}

TEST(ToneDataMIDIImporter, DrumNameIsOneForTheSetAndUnknownClassesHaveNone)
{
    EXPECT_EQ(importedMessages({"F0 00 48 05 7F 41 01 00 7F 4B 69 74 20 20 20 20 20 20 20 20 20 F7"}).userDrumName,
              "Kit");
    EXPECT_EQ(importedMessages({"F0 00 48 05 7F 41 02 00 05 4B 69 74 20 20 20 20 20 20 20 20 20 F7"}),
              factoryToneData());
}

TEST(ToneDataMIDIImporter, ContinuationIsTreatedAsACompleteMessage)
{
    EXPECT_EQ(importedMessages({"F7 7F 7F 04 01 00 45 F7"}).master.masterVolume, 0x45);
    EXPECT_EQ(importedMessages({"F0 7F 7F 04 01 00 45"}).master.masterVolume, 0x45) << "the missing end is added";
    EXPECT_EQ(importedMessages({"F7 7F 7F 04 01 00 45"}).master.masterVolume, 0x45);
}

TEST(ToneDataMIDIImporter, OtherCommandsOfTheModuleAreIgnored)
{
    EXPECT_EQ(importedMessages({"F0 00 48 05 7F 00 00 F7", "F0 00 48 05 7F 03 05 F7", "F0 00 48 05 7F 05 01 F7",
                                "F0 00 48 05 7F F7", "F0 41 10 42 12 40 00 7F 00 41 F7"}),
              factoryToneData());
}

TEST(ToneDataMIDIImporter, WaveformSectionFillsItsPlace)
{
    UserWaveform ramp(UserWaveformBuilder::sampleCount);
    for (std::size_t i = 0; i < ramp.size(); ++i)
        ramp[i] = static_cast<std::int16_t>(static_cast<int>(i) * 31 - 32000);
    SimpleMIDIFile file;
    file.tracks.emplace_back();
    file.tracks[0].events.push_back({0, UserWaveformBuilder::sectionSysEx(2, 127, ramp)});
    const ImportedToneData data = imported(file);
    ImportedToneData expected = factoryToneData();
    for (std::size_t i = 2032; i < 2048; ++i)
        expected.userWaveforms[2][i] = ramp[i];
    EXPECT_EQ(data, expected);
}

TEST(ToneDataMIDIImporter, WaveformForAMissingOrUnfitSlotIsIgnored)
{
    SimpleMIDIFile file;
    file.tracks.emplace_back();
    file.tracks[0].events.push_back({0, UserWaveformBuilder::sectionSysEx(2, 0, UserWaveformBuilder::saw())});
    ImportedToneData base = factoryToneData();
    base.userWaveforms[2].resize(2047);
    EXPECT_EQ(imported(file, base), base);
    base.userWaveforms.resize(2);
    EXPECT_EQ(imported(file, base), base);
}

} // namespace
} // namespace tonavelle
