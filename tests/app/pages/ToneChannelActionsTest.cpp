#include "pages/ToneChannelActions.h"

#include "core/tone/FactoryMelodyTable.h"
#include "core/tone/ToneParameterTable.h"
#include "tests/app/support/ToneEditorTest.h"
#include "tests/app/support/ToneSteps.h"

namespace orvim {
namespace {

using test::batch;
using test::channelSteps;
using test::masterSteps;
using test::ToneStep;
using ID = tonavelle::ToneParameterID;

class ToneChannelActionsTest : public test::ToneEditorTest
{
};

TEST_F(ToneChannelActionsTest, EachControlOfAChannelSendsItsMessageUnderItsLabel)
{
    actions.channels.selectChannel(2);
    for (const ToneStep& step : channelSteps) {
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
    for (const ToneStep& step : masterSteps) {
        forget();
        actions.channels.setMaster(step.id, step.value);
        EXPECT_EQ(sent(), batch(step.messages)) << step.label;
        EXPECT_EQ(tonavelle::value(tonavelle::toneParameter(step.id), state().instrument.master), step.value)
            << step.label;
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

TEST_F(ToneChannelActionsTest, ADrumTrackSetToMelodyKeepsProgramZero)
{
    actions.channels.selectChannel(9);
    actions.channels.setChannel(ID::drumTrackSetting, 0);
    EXPECT_EQ(sent(), batch({"B9 63 0A", "B9 62 00", "B9 06 00", "B9 26 00", "B9 00 00", "B9 20 00", "C9 00"}));
    EXPECT_EQ(labels(), QStringList{QStringLiteral("Drum Track Setting")});
    EXPECT_EQ(state().channel().programChange, 0);
    EXPECT_EQ(part(9).name, "001:Piano 1");
    EXPECT_FALSE(part(9).isDrum);
}

TEST_F(ToneChannelActionsTest, ADrumChannelsProgramIsZeroWhenItsBankChanges)
{
    actions.channels.selectChannel(9);
    // As a file may have it.
    actions.model.change(ToneEditorPart::channel,
                         [](ToneEditorState& state) { state.instrument.channels[9].programChange = 40; });
    actions.channels.setChannel(ID::bankKind, 1);
    EXPECT_EQ(sent(), batch({"B9 00 10", "B9 20 00", "C9 00"}));
    EXPECT_EQ(labels(), QStringList{QStringLiteral("Bank Select / Program Change")});
    EXPECT_EQ(state().channel().programChange, 0);
    EXPECT_EQ(part(9).name, "001:User Drum");
    EXPECT_TRUE(part(9).isUserBank);
    EXPECT_TRUE(part(9).isDrum);
    EXPECT_EQ(part(9).program, 0);
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
    EXPECT_EQ(part(0).name, "081:Square Wave");
    auto expected = tonavelle::ChannelToneParameters({.programChange = 80});
    tonavelle::applyFactoryPreset(80, expected);
    EXPECT_EQ(state().channel().waveType, 1);
    EXPECT_EQ(state().channel().outputGain, 30);
    for (const auto& row : tonavelle::channelToneParameterRows()) {
        if (row.patchOffset == 0) continue;
        EXPECT_EQ(tonavelle::value(row, state().channel()), tonavelle::value(row, expected)) << row.label;
    }
}

TEST_F(ToneChannelActionsTest, AProgramOfTheUserBankLeavesTheSoundAlone)
{
    actions.channels.setChannel(ID::bankKind, 1);
    const auto before = state().channel();
    forget();
    actions.channels.chooseProgram(80);
    EXPECT_EQ(sent(), batch({"B0 00 10", "B0 20 00", "C0 50"}));
    auto expected = before;
    expected.programChange = 80;
    EXPECT_EQ(state().channel(), expected);
    EXPECT_EQ(part(0).name, "081:User Melody");
    EXPECT_TRUE(part(0).isUserBank);
    EXPECT_EQ(part(0).program, 80);
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
    EXPECT_EQ(labels(), QStringList{QStringLiteral("Bank Select / Program Change")});
    EXPECT_EQ(state().channel().programChange, 0);
    EXPECT_EQ(part(9).name, "001:Standard Set");
    EXPECT_TRUE(part(9).isDrum);
}

TEST_F(ToneChannelActionsTest, EachStepIsAnEntryOfItsOwn)
{
    for (const double volume : {101, 102, 103})
        actions.channels.setChannel(ID::volume, volume);
    EXPECT_EQ(sent(), batch({"B0 07 65", "B0 07 66", "B0 07 67"}));
    EXPECT_EQ(labels(), QStringList(3, QStringLiteral("Volume")));
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
