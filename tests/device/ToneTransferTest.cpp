// The tone editor's "全送信": everything it holds comes to the module, which then has the same sound.

#include "Editor.h"
#include "Messages.h"
#include "PortionsByTurns.h"
#include "core/tone/ToneDataFile.h"
#include "core/tone/ToneEditorBuilder.h"
#include "pages/ToneEditorActions.h"
#include "tests/app/support/Progress.h"
#include "tests/app/support/RecordingDialogs.h"
#include "tests/support/Bytes.h"
#include "usbmodule/USBModule.h"

namespace orvim::test {

namespace {

using tonavelle::ChannelToneParameters;
using tonavelle::ToneBankKind;
using tonavelle::ToneDrumTrackSetting;
using tonavelle::ToneInstrument;
using tonavelle::ToneParameter;

constexpr std::ptrdiff_t messagesBefore = 500;

/// Names of user melodies, and what of them the module can keep.
struct Name {
    const char* given;
    const char* kept;
};
constexpr std::array<Name, 4> unusualNames{{
    {"ABCDEFGHIJKLMNOPQRST", "ABCDEFGHIJKL"},
    {"Bläser  ", "Bl ser"},
    {"ピアノ A", "    A"},
    {"ピアノ", ""},
}};

/// A value of the parameter's range that is not `usual`; another one for each `seed` where the range is large enough.
int otherValue(const ToneParameter& parameter, int usual, std::size_t seed)
{
    const auto [lowest, highest] = parameter.range;
    const int count = highest - lowest + 1;
    const int step = static_cast<int>(seed) * 331 + static_cast<int>(parameter.id) * 29;
    const int value = lowest + step % count;
    return value != usual ? value : lowest + (step + 1) % count;
}

template <typename Record>
void changeEveryValue(std::span<const ToneParameter> parameters, Record& record, std::size_t seed)
{
    for (const ToneParameter& parameter : parameters)
        setValue(parameter, record, otherValue(parameter, value(parameter, record), seed));
}

/// Channels of all four kinds, none of them as it left the factory.
void changeSelection(ChannelToneParameters& channel, std::size_t index)
{
    const bool isDrum = index % 4 >= 2;
    channel.drumTrackSetting = isDrum ? ToneDrumTrackSetting::drum : ToneDrumTrackSetting::melody;
    channel.bankKind = index % 2 == 1 ? ToneBankKind::user : ToneBankKind::preset;
    channel.programChange = static_cast<std::uint8_t>(isDrum ? 0 : index * 8 + 3);
}

std::string melodyName(std::size_t index)
{
    return index < unusualNames.size() ? unusualNames[index].given : "Melody " + std::to_string(index);
}

/// A state in which no value that travels is the factory's, and no two patches, channels or waveforms are alike.
ToneInstrument changedInstrument()
{
    ToneInstrument instrument = tonavelle::factoryToneInstrument();
    changeEveryValue(tonavelle::masterToneParameterRows(), instrument.master, 1);
    for (std::size_t i = 0; i < instrument.channels.size(); ++i) {
        changeEveryValue(tonavelle::channelToneParameterRows(), instrument.channels[i], i);
        changeSelection(instrument.channels[i], i);
    }
    for (std::size_t i = 0; i < instrument.userMelodies.size(); ++i) {
        auto& melody = instrument.userMelodies[i];
        changeEveryValue(tonavelle::channelToneParameterRows(), melody.parameters, i + 20);
        melody.name = melodyName(i);
        melody.presetProgram = static_cast<int>(i);
        auto& drum = instrument.userDrums[i];
        changeEveryValue(tonavelle::channelToneParameterRows(), drum.parameters, i + 70);
        drum.name = "Drum";
        drum.noteNumber = static_cast<std::uint8_t>((drum.noteNumber + 1 + i % 127) % 128);
    }
    instrument.drumSetName = "Kit of tests";
    for (std::size_t slot = 0; slot < instrument.userWaveforms.size(); ++slot)
        for (std::size_t i = 0; i < instrument.userWaveforms[slot].size(); ++i)
            instrument.userWaveforms[slot][i] = static_cast<std::int16_t>(i * 8'191 + slot * 1'013);
    return instrument;
}

void takeSound(ChannelToneParameters& record, const ChannelToneParameters& from)
{
    for (const ToneParameter& parameter : tonavelle::channelToneParameterRows())
        if (parameter.patchOffset != 0) setValue(parameter, record, value(parameter, from));
}

/// What of `instrument` there are messages for: of a patch its sound, of a melody its name in ASCII and of a drum its
/// pitch too; of a channel everything, but a sound of its own only where it plays a factory melody.
ToneInstrument asKeptByTheModule(const ToneInstrument& instrument)
{
    const ToneInstrument factory = tonavelle::factoryToneInstrument();
    ToneInstrument kept = instrument;
    for (auto& channel : kept.channels)
        if (!tonavelle::ToneEditorBuilder::sendsVoiceEdit(channel)) takeSound(channel, factory.channels[0]);
    for (std::size_t i = 0; i < kept.userMelodies.size(); ++i) {
        kept.userMelodies[i] = factory.userMelodies[i];
        kept.userMelodies[i].name = i < unusualNames.size() ? unusualNames[i].kept : melodyName(i);
        takeSound(kept.userMelodies[i].parameters, instrument.userMelodies[i].parameters);
        kept.userDrums[i] = factory.userDrums[i];
        kept.userDrums[i].noteNumber = instrument.userDrums[i].noteNumber;
        takeSound(kept.userDrums[i].parameters, instrument.userDrums[i].parameters);
    }
    return kept;
}

void expectSame(const std::vector<tonavelle::UserTonePatch>& heard, const std::vector<tonavelle::UserTonePatch>& kept)
{
    ASSERT_EQ(heard.size(), kept.size());
    for (std::size_t i = 0; i < heard.size(); ++i) {
        EXPECT_EQ(heard[i].name, kept[i].name);
        EXPECT_TRUE(heard[i] == kept[i]) << "patch " << i;
    }
}

void expectSame(const ToneInstrument& heard, const ToneInstrument& kept)
{
    EXPECT_TRUE(heard.master == kept.master);
    ASSERT_EQ(heard.channels.size(), kept.channels.size());
    for (std::size_t i = 0; i < heard.channels.size(); ++i)
        EXPECT_TRUE(heard.channels[i] == kept.channels[i]) << "channel " << i;
    expectSame(heard.userMelodies, kept.userMelodies);
    expectSame(heard.userDrums, kept.userDrums);
    EXPECT_EQ(heard.drumSetName, kept.drumSetName);
    EXPECT_TRUE(heard.userWaveforms == kept.userWaveforms);
}

} // namespace

TEST(ToneTransfer, SendAllGivesTheModuleTheWholeState)
{
    USBModule module({.takesPortions = true});
    Editor editor;
    ASSERT_TRUE(editor.waitUntilSelected(moduleSecondPort));
    RecordingDialogs dialogs;
    ToneEditorActions actions(editor.runtime, dialogs);
    actions.model.change(ToneEditorModel::everything,
                         [](ToneEditorState& state) { state.instrument = changedInstrument(); });

    const PortionsByTurns portions(module);
    // Fill the queue, in which a great part of it would fit without a turn of the window.
    editor.sendOneByOne(numberedMessages(std::size_t{messagesBefore}));
    const auto progress = progressDuring(editor.manager(), [&] { actions.sending.sendAll(); });
    const std::size_t portionsWhileSending = portions.count();
    auto arrived = arrivedAsLogged(module.port(1), editor);
    const std::size_t leastPortions = PortionsByTurns::leastFor(joined(arrived).size());
    ASSERT_GT(std::ssize(arrived), messagesBefore);
    arrived.erase(arrived.begin(), arrived.begin() + messagesBefore);

    // Reset, mode, master; melodies with their names, drums, the set's name, waveforms; channels of 50 messages, and of
    // 43 more where they have a sound of their own.
    ASSERT_EQ(arrived.size(), 2U + 21 + 2 * 128 + 128 + 1 + 4 * 128 + 16 * 50 + 4 * 43);
    EXPECT_EQ(arrived.front(), bytes("F0 00 48 05 7F 00 00 F7"));
    expectSame(tonavelle::readToneDataFile(recordedFile(arrived)), asKeptByTheModule(changedInstrument()));
    EXPECT_EQ(module.port(0).size(), 0U);
    EXPECT_EQ(progress, progressOf(static_cast<int>(arrived.size())));
    EXPECT_GT(leastPortions, 0U);
    EXPECT_GE(portionsWhileSending, leastPortions);
    EXPECT_EQ(editor.log().lineCount(), 300U);
}

} // namespace orvim::test
