#include "core/tone/ToneEditorBuilder.h"

#include "core/protocol/MIDIMessageBuilder.h"
#include "core/tone/FactoryDrumTable.h"
#include "core/tone/ToneDefaults.h"
#include "tests/core/tone/NumberedSound.h"
#include "tests/support/Bytes.h"

#include <algorithm>
#include <array>
#include <gmock/gmock.h>

namespace tonavelle {
namespace {

using namespace ToneEditorBuilder;
using orvim::test::bytes;
using testing::Contains;
using ID = ToneParameterID;

constexpr auto drum = ToneDrumTrackSetting::drum;
constexpr auto user = ToneBankKind::user;

/// A batch as one run of bytes, to be held against a literal.
Message joined(const Batch& batch)
{
    Message all;
    for (const Message& message : batch)
        all.insert(all.end(), message.begin(), message.end());
    return all;
}

TEST(ToneEditorBuilder, MasterVolumeIsTheUniversalRealTimeMessage)
{
    EXPECT_EQ(masterVolume(127), bytes("F0 7F 7F 04 01 00 7F F7"));
    EXPECT_EQ(masterVolume(200), bytes("F0 7F 7F 04 01 00 48 F7")) << "the low seven bits of 200";
}

TEST(ToneEditorBuilder, NrpnPutsTheValueInTheHighDataByte)
{
    EXPECT_EQ(joined(nrpn(2, 8, 1, 100)), bytes("B2 63 08 B2 62 01 B2 06 64 B2 26 00"));
}

TEST(ToneEditorBuilder, MasterMessagesGoVolumeDelayChorusReverb)
{
    const Batch batch = masterMessages(MasterToneParameters(), 0);
    EXPECT_EQ(batch.size(), 21u);
    EXPECT_EQ(joined(batch), bytes("F0 7F 7F 04 01 00 7F F7"
                                   "B0 63 07 B0 62 00 B0 06 7F B0 26 00"
                                   "B0 63 07 B0 62 01 B0 06 78 B0 26 00"
                                   "B0 63 07 B0 62 0A B0 06 64 B0 26 00"
                                   "B0 63 07 B0 62 0B B0 06 09 B0 26 00"
                                   "B0 63 07 B0 62 14 B0 06 00 B0 26 00"));
    EXPECT_EQ(masterMessageGroups(MasterToneParameters(), 0).size(), 6u);
}

TEST(ToneEditorBuilder, MasterMessagesEndOnTheReverbType)
{
    const Batch batch = masterMessages(MasterToneParameters(), 0);
    EXPECT_EQ(joined({batch.end() - 4, batch.end()}), bytes("B0 63 07 B0 62 14 B0 06 00 B0 26 00"));
}

TEST(ToneEditorBuilder, ProgramSelectionNamesTheBank)
{
    EXPECT_EQ(joined(programSelectionMessages(3, ChannelToneParameters({.bankKind = user, .programChange = 5}))),
              bytes("B3 00 10 B3 20 00 C3 05"));
    EXPECT_EQ(joined(programSelectionMessages(3, ChannelToneParameters({.programChange = 127}))),
              bytes("B3 00 00 B3 20 00 C3 7F"));
}

TEST(ToneEditorBuilder, BasicSetupHasTwelveGroupsInTheirOrder)
{
    const MessageGroups groups = gmBasicSetupMessageGroups(1, ChannelToneParameters());
    ASSERT_EQ(groups.size(), 12u);
    const std::array expected{
        "B1 0A 40",
        "B1 07 64",
        "B1 0B 7F",
        "B1 5B 14",
        "B1 5D 00",
        "B1 5E 00",
        "B1 01 00",
        "B1 65 00 B1 64 01 B1 06 40 B1 26 00",
        "B1 65 00 B1 64 02 B1 06 40",
        "B1 65 00 B1 64 00 B1 06 02",
        "E1 00 40",
        "B1 65 7F B1 64 7F",
    };
    for (std::size_t i = 0; i < groups.size(); ++i)
        EXPECT_EQ(joined(groups[i]), bytes(expected[i])) << "group " << i + 1;
}

TEST(ToneEditorBuilder, FineTuningSpansFourteenBits)
{
    const auto fineTuning = [](int value) {
        return joined(gmBasicSetupMessageGroups(0, ChannelToneParameters({.fineTuning = value})).at(7));
    };
    EXPECT_EQ(fineTuning(0), bytes("B0 65 00 B0 64 01 B0 06 40 B0 26 00"));
    EXPECT_EQ(fineTuning(-8192), bytes("B0 65 00 B0 64 01 B0 06 00 B0 26 00"));
    EXPECT_EQ(fineTuning(8191), bytes("B0 65 00 B0 64 01 B0 06 7F B0 26 7F"));
}

TEST(ToneEditorBuilder, PanpotSpansSevenBits)
{
    const auto panpot = [](int value) {
        return joined(gmBasicSetupMessageGroups(0, ChannelToneParameters({.panpot = value})).at(0));
    };
    EXPECT_EQ(panpot(-64), bytes("B0 0A 00"));
    EXPECT_EQ(panpot(63), bytes("B0 0A 7F"));
}

TEST(ToneEditorBuilder, SoundVariationHasEightGroupsInTheirOrder)
{
    const ChannelToneParameters parameters({.distortionType = 1,
                                            .distortionLevel = 2,
                                            .distortionGain = 3,
                                            .cutOff = 4,
                                            .resonance = -64,
                                            .unisonNumber = 6,
                                            .unisonDetune = 63,
                                            .vibratoRate = -1});
    const MessageGroups groups = soundVariationMessageGroups(15, parameters);
    ASSERT_EQ(groups.size(), 8u);
    EXPECT_EQ(joined(flattened(groups)), bytes("BF 47 00 BF 4A 44 BF 4C 3F"
                                               "BF 63 08 BF 62 00 BF 06 01 BF 26 00"
                                               "BF 63 08 BF 62 01 BF 06 02 BF 26 00"
                                               "BF 63 08 BF 62 02 BF 06 03 BF 26 00"
                                               "BF 63 09 BF 62 00 BF 06 06 BF 26 00"
                                               "BF 63 09 BF 62 01 BF 06 7F BF 26 00"));
}

TEST(ToneEditorBuilder, VoiceEditHasThirteenGroupsInTheirOrder)
{
    const ChannelToneParameters parameters = test::numberedSound();
    const MessageGroups groups = voiceEditMessageGroups(0, parameters);
    ASSERT_EQ(groups.size(), 13u);
    EXPECT_EQ(flattened(groups), voiceEditMessages(0, parameters));
    EXPECT_EQ(joined(voiceEditMessages(0, parameters)), bytes("B0 63 02 B0 62 00 B0 06 01 B0 26 00"
                                                              "B0 63 02 B0 62 01 B0 06 02 B0 26 00"
                                                              "B0 63 03 B0 62 00 B0 06 03 B0 26 00"
                                                              "B0 63 03 B0 62 01 B0 06 04 B0 26 00"
                                                              "B0 63 04 B0 62 00 B0 06 00 B0 26 00"
                                                              "B0 63 04 B0 62 01 B0 06 06 B0 26 00"
                                                              "B0 49 07 B0 4B 08"
                                                              "B0 63 06 B0 62 01 B0 06 09 B0 26 00"
                                                              "B0 63 06 B0 62 00 B0 06 0A B0 26 00"
                                                              "B0 48 0B"
                                                              "B0 63 06 B0 62 0A B0 06 01 B0 26 00"
                                                              "B0 63 02 B0 62 02 B0 06 0D B0 26 00"));
}

TEST(ToneEditorBuilder, OnlyAMelodyPresetChannelHasASoundDetail)
{
    EXPECT_TRUE(sendsVoiceEdit(ChannelToneParameters()));
    EXPECT_FALSE(sendsVoiceEdit(ChannelToneParameters({.drumTrackSetting = drum})));
    EXPECT_FALSE(sendsVoiceEdit(ChannelToneParameters({.bankKind = user})));
    EXPECT_FALSE(sendsVoiceEdit(ChannelToneParameters({.drumTrackSetting = drum, .bankKind = user})));
}

TEST(ToneEditorBuilder, ChannelMessagesSelectSetUpAndDetail)
{
    const ChannelToneParameters parameters({.programChange = 4, .panpot = 5});
    Batch expected = nrpn(2, 10, 0, 0);
    for (const Batch& part :
         {programSelectionMessages(2, parameters), gmSetupMessages(2, parameters), voiceEditMessages(2, parameters)})
        expected.insert(expected.end(), part.begin(), part.end());
    EXPECT_EQ(channelMessages(2, parameters), expected);
}

TEST(ToneEditorBuilder, DrumChannelHasNoWaveOrEnvelopeMessage)
{
    const ChannelToneParameters parameters(
        {.drumTrackSetting = drum, .isReleaseActive = false, .waveType = 3, .attack = 99, .outputGain = 1});
    const Batch batch = channelMessages(9, parameters);
    for (const int controller : {72, 73, 75})
        for (int value = 0; value < 128; ++value)
            EXPECT_THAT(batch, testing::Not(Contains(MIDIMessageBuilder::controlChange(9, controller, value))));
    for (const int nrpnMSB : {2, 3, 4, 6})
        EXPECT_THAT(batch, testing::Not(Contains(MIDIMessageBuilder::controlChange(9, 0x63, nrpnMSB))));
    EXPECT_THAT(batch, Contains(bytes("B9 63 0A")));
    EXPECT_THAT(batch, Contains(bytes("B9 63 08"))) << "the sound variation stays";
}

TEST(ToneEditorBuilder, UserChannelSelectsBankSixteenAndAPresetChannelBankZero)
{
    const Batch userBatch = channelMessages(0, ChannelToneParameters({.bankKind = user}));
    EXPECT_THAT(userBatch, Contains(bytes("B0 00 10")));
    EXPECT_THAT(userBatch, Contains(bytes("B0 20 00")));
    const Batch presetBatch = channelMessages(0, ChannelToneParameters());
    EXPECT_THAT(presetBatch, Contains(bytes("B0 00 00")));
    EXPECT_THAT(presetBatch, Contains(bytes("B0 20 00")));
}

TEST(ToneEditorBuilder, SendAllStartsWithTheResetAndWritesSixteenChannelsAtMost)
{
    std::vector<ChannelToneParameters> channels = defaultChannels();
    const Batch sixteen = sendAllMessages(MasterToneParameters(), channels);
    EXPECT_EQ(sixteen.front(), bytes("F0 00 48 05 7F 00 00 F7"));
    EXPECT_EQ(sixteen.at(1), bytes("F0 7F 7F 04 01 00 7F F7"));
    EXPECT_EQ(sixteen.at(22), bytes("B0 63 0A")) << "the first channel begins behind the 21 master messages";
    channels.push_back(ChannelToneParameters());
    EXPECT_EQ(sendAllMessages(MasterToneParameters(), channels), sixteen);
    EXPECT_EQ(sendAllMessages(MasterToneParameters(), {}).size(), 22u);
}

TEST(ToneEditorBuilder, SelectsPatchesForHearingThem)
{
    EXPECT_EQ(joined(selectUserMelodyPatch(0, 127)),
              bytes("B0 63 0A B0 62 00 B0 06 00 B0 26 00 B0 00 10 B0 20 00 C0 7F"));
    EXPECT_EQ(joined(selectUserDrumPatch(9)), bytes("B9 63 0A B9 62 00 B9 06 01 B9 26 00 B9 00 10 B9 20 00 C9 00"));
}

TEST(ToneEditorBuilder, RestoringAChannelSelectsItsSoundAndItsDetail)
{
    EXPECT_EQ(joined(restoreMessages(9, ChannelToneParameters({.drumTrackSetting = drum}))),
              bytes("B9 63 0A B9 62 00 B9 06 01 B9 26 00 B9 00 00 B9 20 00 C9 00"));
    EXPECT_EQ(restoreMessages(0, ChannelToneParameters()).size(),
              4u + 3u + voiceEditMessages(0, ChannelToneParameters()).size());
}

TEST(ToneEditorBuilder, LiveTuningSendsTheLowDataByteToo)
{
    const ChannelToneParameters parameters({.pitchBendSensitivity = 12, .fineTuning = 1, .coarseTuning = -2});
    EXPECT_EQ(joined(liveMessages(ID::coarseTuning, 1, parameters)), bytes("B1 65 00 B1 64 02 B1 06 3E B1 26 00"));
    EXPECT_EQ(joined(liveMessages(ID::pitchBendSensitivity, 1, parameters)),
              bytes("B1 65 00 B1 64 00 B1 06 0C B1 26 00"));
    EXPECT_EQ(joined(liveMessages(ID::fineTuning, 1, parameters)), bytes("B1 65 00 B1 64 01 B1 06 40 B1 26 01"));
}

TEST(ToneEditorBuilder, LiveDrumTrackSettingSelectsTheSoundAgain)
{
    const ChannelToneParameters parameters({.drumTrackSetting = drum});
    EXPECT_EQ(joined(liveMessages(ID::drumTrackSetting, 0, parameters)),
              bytes("B0 63 0A B0 62 00 B0 06 01 B0 26 00 B0 00 00 B0 20 00 C0 00"));
    EXPECT_EQ(liveMessages(ID::bankKind, 0, parameters), programSelectionMessages(0, parameters));
    EXPECT_EQ(liveMessages(ID::programChange, 0, parameters), programSelectionMessages(0, parameters));
}

TEST(ToneEditorBuilder, LiveMasterValuesGoToTheFirstChannel)
{
    const MasterToneParameters master({.reverbType = 2, .masterVolume = 5});
    EXPECT_EQ(joined(liveMessages(ID::masterVolume, master)), bytes("F0 7F 7F 04 01 00 05 F7"));
    EXPECT_EQ(joined(liveMessages(ID::reverbType, master)), bytes("B0 63 07 B0 62 14 B0 06 02 B0 26 00"));
}

TEST(ToneEditorBuilder, EveryOtherControlSendsLiveWhatABulkWriteSends)
{
    const ChannelToneParameters parameters({.waveType = 8, .cutOff = -3, .unisonNumber = 4});
    const Batch whole = channelMessages(4, parameters);
    for (const ToneParameter& row : channelToneParameterRows()) {
        if (row.carrier.kind == ToneCarrier::Kind::rpn || row.id == ID::drumTrackSetting) continue;
        const Batch live = liveMessages(row.id, 4, parameters);
        EXPECT_NE(std::search(whole.begin(), whole.end(), live.begin(), live.end()), whole.end()) << row.label;
    }
}

TEST(UserPatchParam, ReleaseFlagIsInverted)
{
    EXPECT_EQ(userPatchParam(false, 0, 0, ChannelToneParameters({.isReleaseActive = true}), {}).at(10), 0);
    EXPECT_EQ(userPatchParam(false, 0, 0, ChannelToneParameters({.isReleaseActive = false}), {}).at(10), 1);
}

TEST(UserPatchParam, MelodyStandsUnderItsProgram)
{
    const ChannelToneParameters parameters = test::numberedSound();
    EXPECT_EQ(userPatchParam(false, 127, 99, parameters, {}),
              bytes("F0 00 48 05 7F 40 00 00 7F 00 01 01 02 03 04 00 06 07 08 09 0A 0B 00 0D F7"));
}

TEST(UserPatchParam, DrumStandsUnderItsKeyAtItsPitch)
{
    const UserDrumDefaultPatch snare = defaultUserDrumPatch(38);
    EXPECT_EQ(userPatchParam(true, 0, snare.noteNumber, snare.parameters, 38),
              bytes("F0 00 48 05 7F 40 01 00 00 26 01 06 01 1F 00 02 00 00 00 7F 00 00 45 4E F7"));
}

TEST(UserPatchParam, ProgramStandsInForAnAbsentDrumKey)
{
    const Message message = userPatchParam(true, 38, 69, ChannelToneParameters(), {});
    EXPECT_EQ(message.at(8), 0);
    EXPECT_EQ(message.at(9), 38);
}

TEST(UserPatchParam, MasksEveryDataByte)
{
    ChannelToneParameters parameters;
    parameters.waveType = 0xFF;
    const Message message = userPatchParam(true, 300, 200, parameters, 300);
    EXPECT_EQ(message.at(9), 300 & 127);
    EXPECT_EQ(message.at(11), 0x7F);
    EXPECT_EQ(message.at(22), 72);
}

TEST(UserPatchName, IsCutToTwelveLettersOrFilledWithBlanks)
{
    EXPECT_EQ(userPatchName(false, 5, "ABCDEFGHIJKLMNOPQRST"),
              bytes("F0 00 48 05 7F 41 00 00 05 41 42 43 44 45 46 47 48 49 4A 4B 4C F7"));
    EXPECT_EQ(userPatchName(false, 5, "Pad"),
              bytes("F0 00 48 05 7F 41 00 00 05 50 61 64 20 20 20 20 20 20 20 20 20 F7"));
}

TEST(UserPatchName, DrumSetHasOneNameForAllNotes)
{
    EXPECT_EQ(userPatchName(true, 5, "Kit"),
              bytes("F0 00 48 05 7F 41 01 00 00 4B 69 74 20 20 20 20 20 20 20 20 20 F7"));
}

} // namespace
} // namespace tonavelle
