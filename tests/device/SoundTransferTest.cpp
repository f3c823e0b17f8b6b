// The sound page's "実機で再生": sounds of 50 seconds fill the module's whole sound memory.

#include "Editor.h"
#include "Messages.h"
#include "PortionsByTurns.h"
#include "core/media/TransferMIDIFileBuilder.h"
#include "pages/SoundTransferPageActions.h"
#include "tests/app/support/Progress.h"
#include "tests/app/support/RecordingDialogs.h"
#include "tests/app/support/WaveFile.h"
#include "tests/support/Bytes.h"
#include "usbmodule/USBModule.h"

#include <QTemporaryDir>

#include <algorithm>

namespace orvim::test {

namespace {

constexpr std::size_t memorySamples = 1'200'000;
/// Lies inside a section, so that this one holds the end of the first sound and the beginning of the second.
constexpr std::size_t firstSoundSamples = 600'037;

/// Samples of the full range that do not repeat within a section.
std::vector<std::int16_t> samples()
{
    std::vector<std::int16_t> result;
    for (std::uint32_t i = 0; i < memorySamples; ++i)
        result.push_back(static_cast<std::int16_t>(i * 2'654'435'761U >> 16));
    return result;
}

/// The code of each of the list's samples at the lower volume at which the page sends them.
std::vector<std::uint8_t> codes(const std::vector<SoundTransferItem>& items)
{
    std::vector<std::uint8_t> result;
    for (const auto& [id, number, path, pcm] : items)
        for (std::size_t i = 0; i < pcm.size(); i += 2) {
            const auto sample = static_cast<std::int16_t>(pcm[i] | pcm[i + 1] << 8);
            const auto lowered = static_cast<std::int16_t>(sample * 0.56234);
            result.push_back(tonavelle::SamplingSoundBuilder::encodeULaw7Bit(lowered));
        }
    return result;
}

/// What the sections put into the sound memory.
std::vector<std::uint8_t> soundMemory(const tonavelle::Batch& messages)
{
    std::vector<std::uint8_t> memory(memorySamples);
    for (const auto& message : messages) {
        if (message.size() != 137) continue;
        const std::size_t begin = 128 * (128U * message[6] + message[7]);
        std::copy_n(message.begin() + 8, 128, memory.begin() + static_cast<std::ptrdiff_t>(begin));
    }
    return memory;
}

/// The sounds as the module plays them, one behind the other.
std::vector<std::uint8_t> playedSamples(const tonavelle::Batch& messages)
{
    std::vector<std::uint8_t> played;
    const auto events = tonavelle::parseMIDIEvents(recordedFile(messages));
    for (const auto& sound : tonavelle::TransferMIDIFileBuilder::restoreSounds(events))
        played.insert(played.end(), sound.pcm16LittleEndian.begin(), sound.pcm16LittleEndian.end());
    return played;
}

std::vector<std::uint8_t> decoded(const std::vector<std::uint8_t>& codes)
{
    std::vector<std::uint8_t> pcm;
    for (const std::uint8_t code : codes) {
        const auto sample = static_cast<std::uint16_t>(tonavelle::SamplingSoundBuilder::decodeULaw7Bit(code));
        pcm.push_back(static_cast<std::uint8_t>(sample & 0xFF));
        pcm.push_back(static_cast<std::uint8_t>(sample >> 8));
    }
    return pcm;
}

} // namespace

TEST(SoundTransfer, SoundsOf50SecondsFillTheWholeSoundMemory)
{
    USBModule module({.takesPortions = true});
    Editor editor;
    ASSERT_TRUE(editor.waitUntilSelected(moduleSecondPort));
    const QTemporaryDir folder;
    const auto all = samples();
    const auto border = all.begin() + firstSoundSamples;
    const QStringList paths{folder.filePath(QStringLiteral("a.wav")), folder.filePath(QStringLiteral("b.wav"))};
    writeFile(paths[0], waveFile({all.begin(), border}));
    writeFile(paths[1], waveFile({border, all.end()}));
    RecordingDialogs dialogs;
    SoundTransferPageActions actions(editor.manager(), dialogs);
    actions.registerFiles(paths);
    ASSERT_EQ(actions.headerText(), QStringLiteral("登録音声数：02/32  合計時間：50.00/50.00sec"));

    const PortionsByTurns portions(module);
    for (int row = 0; row < 2; ++row) {
        const std::size_t sentBefore = joined(editor.loggedMessages()).size();
        const std::size_t portionsBefore = portions.count();
        EXPECT_EQ(progressDuring(editor.manager(), [&] { actions.runOnModule(actions.row(row).id); }),
                  progressOf(4688));
        const std::size_t sent = joined(editor.loggedMessages()).size();
        EXPECT_GE(portions.count() - portionsBefore, PortionsByTurns::leastFor(sent - sentBefore));
        // The next sound is encoded first, during which the module must not have to wait.
        waitForBytes(module.port(1), sent);
    }
    const auto arrived = arrivedAsLogged(module.port(1), editor);

    ASSERT_EQ(arrived.size(), 2U * (1 + 4688 + 4)); // a setting, sections and the call to play, twice
    EXPECT_EQ(arrived[0], bytes("F0 00 48 05 7F 31 00 00 00 00 24 4F 65 F7"));
    EXPECT_EQ(arrived[4693], bytes("F0 00 48 05 7F 31 01 24 4F 65 24 4F 1B F7"));
    EXPECT_EQ(tonavelle::Batch(arrived.end() - 4, arrived.end()),
              (tonavelle::Batch{bytes("B0 63 0B"), bytes("B0 62 00"), bytes("B0 06 01"), bytes("B0 26 00")}));
    const auto sentCodes = codes(actions.state().items);
    EXPECT_TRUE(sameBytes(soundMemory(arrived), sentCodes));
    EXPECT_TRUE(sameBytes(playedSamples(arrived), decoded(sentCodes)));
    EXPECT_EQ(editor.log().lineCount(), 300U);
}

} // namespace orvim::test
