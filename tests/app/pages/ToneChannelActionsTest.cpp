#include "pages/ToneChannelActions.h"

#include "core/tone/FactoryMelodyTable.h"
#include "core/tone/ToneParameterTable.h"
#include "tests/app/support/ToneEditorTest.h"

#include <array>

namespace orvim {
namespace {

using test::bytes;
using tonavelle::Batch;
using tonavelle::ToneBankKind;
using tonavelle::ToneDrumTrackSetting;
using ID = tonavelle::ToneParameterID;

class ToneChannelActionsTest : public test::ToneEditorTest
{
};

Batch batch(std::initializer_list<const char*> messages)
{
    Batch result;
    for (const char* const message : messages)
        result.push_back(bytes(message));
    return result;
}

struct StepCase {
    ID id;
    double value; ///< one step from the default
    const char* label;
    std::initializer_list<const char*> messages; ///< on channel 3
};

// clang-format off
const std::array<StepCase, 30> channelSteps{{
    {ID::reverbSend,       21, "Reverb",           {"B2 5B 15"}},
    {ID::chorusSend,        1, "Chorus",           {"B2 5D 01"}},
    {ID::delaySend,         1, "Delay",            {"B2 5E 01"}},
    {ID::distortionType,    1, "Dist Type",        {"B2 63 08", "B2 62 00", "B2 06 01", "B2 26 00"}},
    {ID::distortionLevel, 126, "Dist Level",       {"B2 63 08", "B2 62 01", "B2 06 7E", "B2 26 00"}},
    {ID::distortionGain,   65, "Dist Gain",        {"B2 63 08", "B2 62 02", "B2 06 41", "B2 26 00"}},
    {ID::cutOff,            1, "Cut Off",          {"B2 4A 41"}},
    {ID::resonance,        -1, "Resonance",        {"B2 47 3F"}},
    {ID::unisonNumber,      1, "Unison Num",       {"B2 63 09", "B2 62 00", "B2 06 01", "B2 26 00"}},
    {ID::unisonDetune,     -1, "Unison Detune",    {"B2 63 09", "B2 62 01", "B2 06 3F", "B2 26 00"}},
    {ID::volume,          101, "Volume",           {"B2 07 65"}},
    {ID::expression,      126, "Expression",       {"B2 0B 7E"}},
    {ID::panpot,            1, "Panpot",           {"B2 0A 41"}},
    {ID::vibratoRate,       1, "Vibrato Rate",     {"B2 4C 41"}},
    {ID::pitchBendSensitivity, 3, "PB Sensitivity", {"B2 65 00", "B2 64 00", "B2 06 03", "B2 26 00"}},
    {ID::fineTuning,       -1, "Fine Tuning",      {"B2 65 00", "B2 64 01", "B2 06 3F", "B2 26 7F"}},
    {ID::coarseTuning,      1, "Coarse Tuning",    {"B2 65 00", "B2 64 02", "B2 06 41", "B2 26 00"}},
    {ID::waveType,          1, "Wave Type",        {"B2 63 02", "B2 62 00", "B2 06 01", "B2 26 00"}},
    {ID::waveNumber,        1, "Wave Num",         {"B2 63 02", "B2 62 01", "B2 06 01", "B2 26 00"}},
    {ID::ringModMultiply,  32, "Ringmod Multiply", {"B2 63 03", "B2 62 00", "B2 06 20", "B2 26 00"}},
    {ID::ringModGain,      71, "Ringmod Gain",     {"B2 63 03", "B2 62 01", "B2 06 47", "B2 26 00"}},
    {ID::attack,            1, "Attack Time",      {"B2 49 01"}},
    {ID::decay,             6, "Decay Time",       {"B2 4B 06"}},
    {ID::sustainLevel,     91, "Sustain Level",    {"B2 63 06", "B2 62 01", "B2 06 5B", "B2 26 00"}},
    {ID::sustainRate,      13, "Sustain Rate",     {"B2 63 06", "B2 62 00", "B2 06 0D", "B2 26 00"}},
    {ID::release,           1, "Release Time",     {"B2 48 01"}},
    {ID::isReleaseActive,   0, "Release Active",   {"B2 63 06", "B2 62 0A", "B2 06 01", "B2 26 00"}},
    {ID::sweepType,         1, "Sweep Type",       {"B2 63 04", "B2 62 00", "B2 06 01", "B2 26 00"}},
    {ID::sweepSpeed,        1, "Sweep Speed",      {"B2 63 04", "B2 62 01", "B2 06 01", "B2 26 00"}},
    {ID::outputGain,       49, "Output Gain",      {"B2 63 02", "B2 62 02", "B2 06 31", "B2 26 00"}},
}};

const std::array<StepCase, 6> masterSteps{{
    {ID::reverbType,          1, "Reverb Type",         {"B0 63 07", "B0 62 14", "B0 06 01", "B0 26 00"}},
    {ID::chorusDepth,        99, "Chorus Depth",        {"B0 63 07", "B0 62 0A", "B0 06 63", "B0 26 00"}},
    {ID::chorusFrequency,    10, "Chorus Freq",         {"B0 63 07", "B0 62 0B", "B0 06 0A", "B0 26 00"}},
    {ID::delayTime,         126, "Delay Time",          {"B0 63 07", "B0 62 00", "B0 06 7E", "B0 26 00"}},
    {ID::delayFeedbackGain, 121, "Delay Feedback Gain", {"B0 63 07", "B0 62 01", "B0 06 79", "B0 26 00"}},
    {ID::masterVolume,      126, "Master Volume",       {"F0 7F 7F 04 01 00 7E F7"}},
}};
// clang-format on

TEST_F(ToneChannelActionsTest, EachControlOfAChannelSendsItsMessageUnderItsLabel)
{
    actions.channels.selectChannel(2);
    for (const StepCase& step : channelSteps) {
        forget();
        actions.channels.setChannel(step.id, step.value);
        EXPECT_EQ(sent(), batch(step.messages)) << step.label;
        EXPECT_EQ(labels(), QStringList{QString::fromUtf8(step.label)});
        EXPECT_EQ(tonavelle::value(tonavelle::toneParameter(step.id), state().channel()), step.value) << step.label;
    }
    // Every row of the channel's table but the three that choose the sound stands above.
    EXPECT_EQ(channelSteps.size() + 3, tonavelle::channelToneParameterRows().size());
}

TEST_F(ToneChannelActionsTest, EachMasterControlSendsOnTheFirstChannel)
{
    actions.channels.selectChannel(5);
    for (const StepCase& step : masterSteps) {
        forget();
        actions.channels.setMaster(step.id, step.value);
        EXPECT_EQ(sent(), batch(step.messages)) << step.label;
        const auto label = QString::fromUtf8(step.label);
        EXPECT_EQ(labels(), QStringList{step.id == ID::masterVolume ? QStringLiteral("SysEx: ") + label : label});
    }
    EXPECT_EQ(masterSteps.size(), tonavelle::masterToneParameterRows().size());
}

TEST_F(ToneChannelActionsTest, ValuesAreTheNearestWholeNumbersWithinTheRange)
{
    actions.channels.setChannel(ID::volume, 63.5);
    EXPECT_EQ(state().channel().volume, 64);
    actions.channels.setChannel(ID::volume, 200);
    EXPECT_EQ(state().channel().volume, 127);
    actions.channels.setChannel(ID::panpot, -70);
    EXPECT_EQ(state().channel().panpot, -64);
}

TEST_F(ToneChannelActionsTest, ADrumTrackSetToDrumSendsProgramZeroInTheSameBatch)
{
    actions.channels.chooseProgram(50);
    forget();
    actions.channels.setChannel(ID::drumTrackSetting, 1);
    EXPECT_EQ(sent(), batch({"B0 63 0A", "B0 62 00", "B0 06 01", "B0 26 00", "B0 00 00", "B0 20 00", "C0 00"}));
    EXPECT_EQ(labels(), QStringList{QStringLiteral("Drum Track Setting")});
    EXPECT_EQ(state().channel().programChange, 0);
    EXPECT_EQ(part(0).name, "001:Standard Set");
    EXPECT_TRUE(part(0).isDrum);
}

TEST_F(ToneChannelActionsTest, AMelodyKeepsItsProgramWhenTheBankChanges)
{
    actions.channels.chooseProgram(50);
    forget();
    actions.channels.setChannel(ID::bankKind, 1);
    EXPECT_EQ(sent(), batch({"B0 00 10", "B0 20 00", "C0 32"}));
    EXPECT_EQ(labels(), QStringList{QStringLiteral("Bank Select / Program Change")});
    EXPECT_EQ(part(0).name, "051:User Melody");
    EXPECT_TRUE(part(0).isUserBank);
}

TEST_F(ToneChannelActionsTest, AProgramLoadsThePresetsSoundWithoutSendingIt)
{
    actions.channels.chooseProgram(80);
    EXPECT_EQ(sent(), batch({"B0 00 00", "B0 20 00", "C0 50"}));
    EXPECT_EQ(labels(), QStringList{QStringLiteral("Bank Select / Program Change")});
    EXPECT_EQ(state().channel().waveType, 1);
    EXPECT_EQ(state().channel().outputGain, 30);
    EXPECT_EQ(part(0).name, "081:Square Wave");
}

TEST_F(ToneChannelActionsTest, AProgramOfTheUserBankLeavesTheSoundAlone)
{
    actions.channels.setChannel(ID::bankKind, 1);
    const auto before = state().channel().waveType;
    actions.channels.chooseProgram(80);
    EXPECT_EQ(state().channel().waveType, before);
    EXPECT_EQ(state().channel().programChange, 80);
}

TEST_F(ToneChannelActionsTest, ProgramRowsAreLimitedToTheMenu)
{
    actions.channels.chooseProgram(1'000);
    EXPECT_EQ(state().channel().programChange, 127);
    actions.channels.chooseProgram(-1);
    EXPECT_EQ(state().channel().programChange, 0);
}

TEST_F(ToneChannelActionsTest, OnADrumChannelTheOneProgramSendsZero)
{
    actions.channels.selectChannel(9);
    actions.channels.chooseProgram(40);
    EXPECT_EQ(sent(), batch({"B9 00 00", "B9 20 00", "C9 00"}));
    EXPECT_EQ(state().channel().programChange, 0);
}

TEST_F(ToneChannelActionsTest, TheStateKeepsAValueThatCouldNotBeSent)
{
    plugged.runtime.midiOutManager().setSelectedDestinationID(std::nullopt);
    actions.channels.setChannel(ID::volume, 7);
    EXPECT_EQ(state().channel().volume, 7);
    EXPECT_EQ(status(), QStringLiteral("MIDI OUTが未選択です。"));
}

TEST_F(ToneChannelActionsTest, SelectionsAreLimitedToTheirLists)
{
    actions.channels.selectChannel(16);
    EXPECT_EQ(state().selectedChannel, 15);
    actions.channels.selectChannel(-1);
    EXPECT_EQ(state().selectedChannel, 0);
    EXPECT_TRUE(sent().empty());
}

} // namespace
} // namespace orvim
