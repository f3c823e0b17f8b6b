#include "pages/ToneEditorSendAll.h"

#include "core/tone/ToneModuleModel.h"
#include "tests/app/support/ToneEditorTest.h"

#include <algorithm>

namespace orvim {
namespace {

using test::bytes;
using tonavelle::Batch;
using Tab = ToneEditorTab;
using ID = tonavelle::ToneParameterID;

// Reset, mode, 21 master messages, 128 melodies with names, 128 drums, the set's name, four waveforms, and channels of
// 7 messages for the sound, 36 for the mixer and 43 more for each of the 15 that have a sound of their own.
constexpr std::size_t userMessageCount = 2 * 128 + 128 + 1 + 4 * 128;

class ToneEditorSendAllTest : public test::ToneEditorTest
{
protected:
    void SetUp() override { plugged.runtime.logStore().setRestrictLineCount(false); }

    void sendAllOn(Tab tab)
    {
        actions.model.change(ToneEditorPart::tab, [tab](ToneEditorState& state) { state.selectedToneTab = tab; });
        forget();
        actions.sending.sendAll();
    }

    QStringList labelRuns() const
    {
        QStringList runs;
        for (const QString& label : labels())
            if (runs.isEmpty() || runs.back() != label) runs << label;
        return runs;
    }

    const QStringList everyLabel{QStringLiteral("SysEx: Tonavelle Reset"),
                                 QStringLiteral("SysEx: Japanese Character Mode"),
                                 QStringLiteral("SysEx: Master Parameters"), QStringLiteral("Master Parameters")};
};

TEST_F(ToneEditorSendAllTest, SendsEverythingOneMessageAnEntryInItsOrder)
{
    sendAllOn(Tab::master);
    const Batch all = sent();
    EXPECT_EQ(all.size(), static_cast<std::size_t>(labels().size()));
    EXPECT_EQ(all[0], bytes("F0 00 48 05 7F 00 00 F7"));
    EXPECT_EQ(all[1], bytes("F0 00 48 05 7F 05 00 F7"));
    EXPECT_EQ(all[2], bytes("F0 7F 7F 04 01 00 7F F7"));
    EXPECT_EQ(all[22], bytes("B0 26 00"));
    EXPECT_EQ(all[23], bytes("F0 00 48 05 7F 40 00 00 00 00 00 00 00 1F 46 02 00 00 05 5A 0C 00 00 30 F7"));
    EXPECT_EQ(all[24], bytes("F0 00 48 05 7F 41 00 00 00 55 73 65 72 20 4D 65 6C 6F 64 79 20 F7"));
    EXPECT_EQ(all[23 + 3 * 128], bytes("F0 00 48 05 7F 41 01 00 00 55 73 65 72 20 44 72 75 6D 20 20 20 F7"));
    EXPECT_EQ(all[23 + userMessageCount - 1][6], 3);
    EXPECT_EQ(all[23 + userMessageCount - 1][7], 127);
    EXPECT_EQ(all[23 + userMessageCount], bytes("B0 63 0A"));
    EXPECT_EQ(all[23 + userMessageCount + 6], bytes("C0 00"));
    EXPECT_EQ(all[23 + userMessageCount + 7], bytes("B0 0A 40"));
    EXPECT_EQ(labelRuns().first(4), everyLabel);
    EXPECT_EQ(labelRuns().back(), QStringLiteral("Channel Parameters"));
    const auto channelEntries = std::ranges::count(labels(), QStringLiteral("Channel Parameters"));
    EXPECT_EQ(static_cast<std::size_t>(channelEntries), all.size() - 23 - userMessageCount);
}

TEST_F(ToneEditorSendAllTest, EndsWithThePreviewOfTheOpenTab)
{
    const std::array<std::pair<Tab, const char*>, 5> ends{{{Tab::master, "Channel Parameters"},
                                                           {Tab::channel, "Channel Parameters"},
                                                           {Tab::userMelody, "Select User Melody Patch"},
                                                           {Tab::userDrum, "Select User Drum Patch"},
                                                           {Tab::userWave, "Select User Wave Preview"}}};
    for (const auto& [tab, label] : ends) {
        sendAllOn(tab);
        EXPECT_EQ(labels().back(), QString::fromUtf8(label));
    }
}

TEST_F(ToneEditorSendAllTest, WhatWasSentParsesBackToTheState)
{
    actions.channels.selectChannel(4);
    actions.channels.chooseProgram(30);
    actions.channels.setChannel(ID::panpot, -20);
    actions.patches.selectUserMelody(100);
    actions.patches.choosePreset(12);
    actions.waves.selectUserWave(3);
    actions.waves.chooseFormula(QStringLiteral("tri(t)"));
    sendAllOn(Tab::master);
    tonavelle::ToneModuleModel module(tonavelle::factoryToneData(), {});
    for (const auto& message : sent())
        module.play(message);
    const auto heard = tonavelle::toneInstrument(std::move(module).result());
    EXPECT_EQ(heard.master, state().instrument.master);
    EXPECT_EQ(heard.channels, state().instrument.channels);
    EXPECT_EQ(heard.userWaveforms, state().instrument.userWaveforms);
    for (std::size_t i = 0; i < 128; ++i) {
        EXPECT_EQ(heard.userMelodies[i].parameters, state().instrument.userMelodies[i].parameters);
        EXPECT_EQ(heard.userDrums[i].parameters, state().instrument.userDrums[i].parameters);
        EXPECT_EQ(heard.userDrums[i].noteNumber, state().instrument.userDrums[i].noteNumber);
    }
}

TEST_F(ToneEditorSendAllTest, AfterItEveryWaveformCountsAsSent)
{
    actions.waves.chooseFormula(QStringLiteral("0"));
    EXPECT_TRUE(state().isUserWaveUnsent());
    actions.sending.sendAll();
    EXPECT_FALSE(state().isUserWaveUnsent());
}

TEST_F(ToneEditorSendAllTest, TheScreenIsResetAndListsEveryChannel)
{
    actions.channels.selectChannel(4);
    actions.channels.chooseProgram(30);
    plugged.runtime.displaySimulator().setPart(4, "other", false, false, 0);
    sendAllOn(Tab::master);
    EXPECT_EQ(part(4).name, "031:DistortionGt");
    EXPECT_EQ(part(9).name, "001:Standard Set");
    EXPECT_EQ(plugged.screen().asciiText, "Tonavelle Reset");
}

TEST_F(ToneEditorSendAllTest, WithoutAnOutputEveryValueStaysAndTheLastFailureIsShown)
{
    actions.waves.chooseFormula(QStringLiteral("0"));
    plugged.runtime.midiOutManager().setSelectedDestinationID(std::nullopt);
    const auto before = state().instrument;
    actions.sending.sendAll();
    EXPECT_EQ(state().instrument, before);
    EXPECT_EQ(state().sentUserWaveforms, before.userWaveforms);
    EXPECT_EQ(status(), QStringLiteral("MIDI OUTが未選択です。"));
    EXPECT_EQ(plugged.runtime.midiOutManager().lastErrorMessage(), QStringLiteral("MIDI OUTが未選択です。"));
    EXPECT_TRUE(sent().empty());
}

TEST_F(ToneEditorSendAllTest, TheLogKeepsItsLimit)
{
    plugged.runtime.logStore().setRestrictLineCount(true);
    actions.sending.sendAll();
    EXPECT_EQ(plugged.runtime.logStore().lineCount(), MIDIOutLogStore::maximumLineCount);
}

TEST_F(ToneEditorSendAllTest, ProgressRunsToTheEndAndGoesAway)
{
    std::vector<double> fractions;
    auto& manager = plugged.runtime.midiOutManager();
    QObject::connect(&manager, &MIDIOutManager::progressChanged, &manager,
                     [&] { fractions.push_back(manager.progressFraction().value_or(-1)); });
    actions.sending.sendAll();
    ASSERT_GT(fractions.size(), 2'000U);
    EXPECT_TRUE(std::ranges::is_sorted(fractions.begin(), fractions.end() - 1));
    EXPECT_EQ(*(fractions.end() - 2), 1);
    EXPECT_EQ(fractions.back(), -1);
}

} // namespace
} // namespace orvim
