#include "pages/ToneEditorSendAll.h"

#include "core/tone/ToneEditorBuilder.h"
#include "core/tone/ToneModuleModel.h"
#include "core/tone/UserWaveformBuilder.h"
#include "tests/app/support/Progress.h"
#include "tests/app/support/ToneEditorTest.h"

#include <algorithm>

namespace orvim {
namespace {

using test::bytes;
using tonavelle::Batch;
using Tab = ToneEditorTab;
using ID = tonavelle::ToneParameterID;
namespace Builder = tonavelle::ToneEditorBuilder;

// Reset, mode, 21 master messages, 128 melodies with names, 128 drums, the set's name, four waveforms, and channels of
// 7 messages for the sound, 43 for the mixer and 43 more for each that has a sound of its own.
constexpr std::size_t userMessageCount = 2 * 128 + 128 + 1 + 4 * 128;
constexpr std::size_t firstOfChannels = 2 + 21 + userMessageCount;
constexpr std::size_t selectionCount = 7;

struct Sent {
    QString label; ///< as the log shows it
    tonavelle::Message message;

    bool operator==(const Sent&) const = default;
};

/// What has to go out for an instrument, in its order.
class ExpectedEntries
{
public:
    explicit ExpectedEntries(const tonavelle::ToneInstrument& instrument)
    {
        add("Tonavelle Reset", {bytes("F0 00 48 05 7F 00 00 F7")});
        add("Japanese Character Mode", {bytes("F0 00 48 05 7F 05 00 F7")});
        add("Master Parameters", Builder::masterMessages(instrument.master, 0));
        for (const auto& patch : instrument.userMelodies) {
            add("User Patch Param Send", {Builder::userPatchParam(false, patch.id, 0, patch.parameters, {})});
            add("User Patch Name Send", {Builder::userPatchName(false, patch.id, patch.name)});
        }
        for (const auto& patch : instrument.userDrums)
            add("User Patch Param Send",
                {Builder::userPatchParam(true, 0, patch.noteNumber, patch.parameters, patch.id)});
        add("User Patch Name Send", {Builder::userPatchName(true, 0, instrument.drumSetName)});
        for (int slot = 0; slot < 4; ++slot)
            add("User Waveform Send Data", tonavelle::UserWaveformBuilder::sysExMessages(
                                               slot, instrument.userWaveforms[static_cast<std::size_t>(slot)]));
        for (int channel = 0; channel < 16; ++channel)
            addChannel(channel, instrument.channels[static_cast<std::size_t>(channel)]);
    }

    std::vector<Sent> all;

private:
    void addChannel(int channel, const tonavelle::ChannelToneParameters& parameters)
    {
        const char* const label = "Channel Parameters";
        const bool isDrum = parameters.drumTrackSetting == tonavelle::ToneDrumTrackSetting::drum;
        const bool isUser = parameters.bankKind == tonavelle::ToneBankKind::user;
        add(label, Builder::nrpn(channel, 10, 0, isDrum ? 1 : 0));
        add(label, Builder::programSelectionMessages(channel, parameters));
        add(label, Builder::gmSetupMessages(channel, parameters));
        if (!isDrum && !isUser) add(label, Builder::voiceEditMessages(channel, parameters));
    }

    void add(const char* label, const Batch& messages)
    {
        for (const auto& message : messages) {
            const auto name = QString::fromUtf8(label);
            all.push_back({message.front() == 0xF0 ? QStringLiteral("SysEx: ") + name : name, message});
        }
    }
};

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

    std::vector<Sent> entries() const
    {
        std::vector<Sent> result;
        const QStringList names = labels();
        const Batch messages = sent();
        EXPECT_EQ(static_cast<std::size_t>(names.size()), messages.size());
        for (std::size_t i = 0; i < messages.size() && i < static_cast<std::size_t>(names.size()); ++i)
            result.push_back({names[static_cast<qsizetype>(i)], messages[i]});
        return result;
    }

    /// Channel 5 with a drum set, channel 8 with a user melody, and something else than the default in every list.
    void edit()
    {
        actions.channels.setMaster(ID::delayTime, 3);
        actions.channels.selectChannel(4);
        actions.channels.setChannel(ID::drumTrackSetting, 1);
        actions.channels.selectChannel(7);
        actions.channels.setChannel(ID::bankKind, 1);
        actions.channels.chooseProgram(60);
        actions.channels.setChannel(ID::fineTuning, -1'234);
        actions.channels.selectChannel(15);
        actions.channels.chooseProgram(99);
        actions.patches.selectUserMelody(60);
        actions.patches.setUserMelodyName(QStringLiteral("Bell"));
        actions.patches.setUserMelody(ID::attack, 9);
        actions.patches.setUserDrum(ID::decay, 8);
        actions.patches.setDrumSetName(QStringLiteral("Kit"));
        actions.waves.selectUserWave(2);
        actions.waves.chooseFormula(QStringLiteral("saw(t)"));
    }
};

TEST_F(ToneEditorSendAllTest, SendsEverythingOneMessageAnEntryInItsOrder)
{
    sendAllOn(Tab::master);
    const auto all = entries();
    ASSERT_EQ(all.size(), 2'365U);
    EXPECT_EQ(all[2].message, bytes("F0 7F 7F 04 01 00 7F F7"));
    EXPECT_EQ(all[22].message, bytes("B0 26 00"));
    EXPECT_EQ(all[23].message, bytes("F0 00 48 05 7F 40 00 00 00 00 00 00 00 1F 46 02 00 00 05 5A 0C 00 00 30 F7"));
    EXPECT_EQ(all[24].message, bytes("F0 00 48 05 7F 41 00 00 00 55 73 65 72 20 4D 65 6C 6F 64 79 20 F7"));
    EXPECT_EQ(all[23 + 3 * 128].message, bytes("F0 00 48 05 7F 41 01 00 00 55 73 65 72 20 44 72 75 6D 20 20 20 F7"));
    EXPECT_EQ(all[firstOfChannels - 1].message[6], 3);
    EXPECT_EQ(all[firstOfChannels - 1].message[7], 127);
    EXPECT_EQ(all[firstOfChannels].message, bytes("B0 63 0A"));
    EXPECT_EQ(all[firstOfChannels + 6].message, bytes("C0 00"));
    EXPECT_EQ(all[firstOfChannels + 7].message, bytes("B0 0A 40"));
    EXPECT_EQ(all, ExpectedEntries(state().instrument).all);
}

TEST_F(ToneEditorSendAllTest, SendsWhatWasEdited)
{
    edit();
    sendAllOn(Tab::channel);
    const auto all = entries();
    // Two channels more have no sound of their own.
    EXPECT_EQ(all.size(), 2'365U - 2 * 43);
    EXPECT_EQ(all, ExpectedEntries(state().instrument).all);
}

TEST_F(ToneEditorSendAllTest, EndsWithThePreviewOfTheOpenTab)
{
    edit();
    struct End {
        Tab tab;
        const char* label;
        Batch messages;
        const char* first; ///< what the screen names for channels 1 and 10
        const char* tenth;
    };
    const std::array<End, 5> ends{{
        {Tab::master, "", {}, "001:Piano 1", "001:Standard Set"},
        {Tab::channel, "", {}, "001:Piano 1", "001:Standard Set"},
        {Tab::userMelody,
         "Select User Melody Patch",
         {bytes("B0 63 0A"), bytes("B0 62 00"), bytes("B0 06 00"), bytes("B0 26 00"), bytes("B0 00 10"),
          bytes("B0 20 00"), bytes("C0 3C")},
         "061:Bell",
         "001:Standard Set"},
        {Tab::userDrum,
         "Select User Drum Patch",
         {bytes("B9 63 0A"), bytes("B9 62 00"), bytes("B9 06 01"), bytes("B9 26 00"), bytes("B9 00 10"),
          bytes("B9 20 00"), bytes("C9 00")},
         "001:Piano 1",
         "001:Kit"},
        {Tab::userWave,
         "Select User Wave Preview",
         {bytes("B0 63 0A"), bytes("B0 62 00"), bytes("B0 06 00"), bytes("B0 26 00"), bytes("B0 00 00"),
          bytes("B0 20 00"), bytes("C0 50"), bytes("B0 63 02"), bytes("B0 62 00"), bytes("B0 06 0A"),
          bytes("B0 26 00")},
         "081:Square Wave",
         "001:Standard Set"},
    }};
    const auto before = ExpectedEntries(state().instrument).all.size();
    for (const End& end : ends) {
        sendAllOn(end.tab);
        const Batch all = sent();
        ASSERT_GE(all.size(), before);
        EXPECT_EQ(Batch(all.begin() + static_cast<std::ptrdiff_t>(before), all.end()), end.messages);
        // The preview is one entry.
        const QStringList after = labels().mid(static_cast<qsizetype>(before));
        EXPECT_EQ(after, end.messages.empty() ? QStringList() : QStringList{QString::fromUtf8(end.label)});
        EXPECT_EQ(part(0).name, end.first) << end.label;
        EXPECT_EQ(part(9).name, end.tenth) << end.label;
    }
}

TEST_F(ToneEditorSendAllTest, TheScreenIsResetBehindTheResetAndListsAChannelBehindItsSelection)
{
    edit();
    actions.channels.selectChannel(0);
    actions.channels.chooseProgram(30);
    struct Look {
        std::string text;
        std::string first;
    };
    std::vector<Look> looks; ///< of the screen, ahead of each message
    plugged.system.onSend = [&] { looks.push_back({plugged.screen().asciiText, part(0).name}); };
    sendAllOn(Tab::master);
    plugged.system.onSend = {};
    EXPECT_NE(looks[0].text, "Tonavelle Reset");
    EXPECT_EQ(looks[0].first, "031:DistortionGt");
    EXPECT_EQ(looks[1].text, "Tonavelle Reset");
    const std::string afterReset = looks[1].first;
    EXPECT_NE(afterReset, "031:DistortionGt");
    EXPECT_EQ(looks[firstOfChannels + selectionCount - 1].first, afterReset);
    EXPECT_EQ(looks[firstOfChannels + selectionCount].first, "031:DistortionGt");
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
    EXPECT_EQ(heard.drumSetName, state().instrument.drumSetName);
    for (std::size_t i = 0; i < 128; ++i) {
        EXPECT_EQ(heard.userMelodies[i].name, state().instrument.userMelodies[i].name);
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
    plugged.system.forgetSent();
    const auto progress = test::progressDuring(plugged.runtime.midiOutManager(), [this] { actions.sending.sendAll(); });
    ASSERT_GT(sent().size(), 2'000U);
    EXPECT_EQ(progress, test::progressOf(static_cast<int>(sent().size())));
}

} // namespace
} // namespace orvim
