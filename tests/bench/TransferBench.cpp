// Pictures, sounds and lyrics to files and back. Beside them: the sum of the bytes that go in, and a logarithm a
// sample.

#include "core/media/ImageTransferBuilder.h"
#include "core/media/LyricFile.h"
#include "core/media/SoundResampling.h"
#include "core/media/TransferMIDIFileBuilder.h"
#include "core/protocol/SimpleMIDIFileBuilder.h"
#include "core/protocol/SimpleMIDIFileReader.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <random>
#include <vector>

namespace {

using namespace tonavelle;
using Bytes = std::vector<std::uint8_t>;

Bytes randomBytes(std::size_t count)
{
    std::mt19937 random(1);
    Bytes bytes(count);
    for (auto& byte : bytes)
        byte = static_cast<std::uint8_t>(random());
    return bytes;
}

const std::vector<SamplingSoundItem>& fullSoundMemory()
{
    static const std::vector<SamplingSoundItem> items{{randomBytes(2'400'000)}};
    return items;
}

Bytes exportedImages()
{
    const Bytes picture = randomBytes(ImageTransferBuilder::rgbByteCount);
    std::vector<Batch> images;
    for (std::uint8_t screen = 0; screen < ImageTransferBuilder::screenCount; ++screen)
        images.push_back(ImageTransferBuilder::imageTransferRows(screen, picture));
    return SimpleMIDIFileBuilder::wpfStyleSequence(
        TransferMIDIFileBuilder::imageTransferEvents(images, true, true, true),
        TransferMIDIFileBuilder::ticksPerQuarterNote);
}

Bytes exportedSounds()
{
    const auto sections = SamplingSoundBuilder::buildSendDataSections(fullSoundMemory(), false);
    const auto settings = SamplingSoundBuilder::buildSettings(fullSoundMemory());
    return SimpleMIDIFileBuilder::wpfStyleSequence(
        TransferMIDIFileBuilder::samplingSoundEvents(sections, settings, 1, true, true),
        TransferMIDIFileBuilder::ticksPerQuarterNote);
}

/// A song of 20,000 lyric events.
SimpleMIDIFile lyricSong()
{
    SimpleMIDIFile song{1, 480, {{}, {}}};
    for (int i = 0; i < 20'000; ++i)
        song.tracks[1].events.push_back({i * 10, {0xFF, 0x05, 0x04, 0x82, 0xA0, 0x82, 0xA2}});
    return song;
}

template <typename Action>
void measure(benchmark::State& state, const Action& action)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(action());
}

std::uint64_t sum(const Bytes& bytes)
{
    return std::accumulate(bytes.begin(), bytes.end(), std::uint64_t(0));
}

void sumOf50SecondsOfSound(benchmark::State& state)
{
    measure(state, [] { return sum(fullSoundMemory()[0].pcm16LittleEndian); });
}

void logarithmOf50SecondsOfSound(benchmark::State& state)
{
    const Bytes& pcm = fullSoundMemory()[0].pcm16LittleEndian;
    Bytes codes(pcm.size() / 2);
    measure(state, [&] {
        for (std::size_t i = 0; i < codes.size(); ++i)
            codes[i] = static_cast<std::uint8_t>(13.0 * std::log(1 + std::abs(pcm[2 * i] - 128.0)));
        return codes.data();
    });
}

void encode50SecondsOfSound(benchmark::State& state)
{
    measure(state, [] { return SamplingSoundBuilder::buildSendDataSections(fullSoundMemory(), true); });
}

void exportFullSoundMemory(benchmark::State& state)
{
    measure(state, exportedSounds);
}

void export32Pictures(benchmark::State& state)
{
    measure(state, exportedImages);
}

void restoreFullSoundMemory(benchmark::State& state)
{
    const Bytes file = exportedSounds();
    measure(state, [&] { return TransferMIDIFileBuilder::restoreSounds(parseMIDIEvents(file)); });
}

void restore32Pictures(benchmark::State& state)
{
    const Bytes file = exportedImages();
    measure(state, [&] { return TransferMIDIFileBuilder::restoreImages(parseMIDIEvents(file)); });
}

void resample50SecondsOf44100HertzStereo(benchmark::State& state)
{
    std::mt19937 random(2);
    std::vector<std::vector<float>> channels(2, std::vector<float>(50 * 44'100));
    for (auto& channel : channels) {
        for (auto& sample : channel)
            sample = static_cast<float>(random() % 2'000) / 1'000 - 1;
    }
    measure(state, [&] { return SamplingSoundBuilder::pcm16LittleEndian(channels, 24'000, 44'100); });
}

void read20000Lyrics(benchmark::State& state)
{
    const Bytes file = SimpleMIDIFileBuilder::file(1, 480, lyricSong().tracks);
    measure(state, [&] { return readLyricRows(SimpleMIDIFileReader::read(file)); });
}

void save20000Lyrics(benchmark::State& state)
{
    const auto song = lyricSong();
    const auto rows = readLyricRows(song);
    measure(state, [&] { return buildLyricFile(rows, true, song, defaultLyricsTicksPerBar); });
}

BENCHMARK(sumOf50SecondsOfSound)->Unit(benchmark::kMillisecond);
BENCHMARK(logarithmOf50SecondsOfSound)->Unit(benchmark::kMillisecond);
BENCHMARK(encode50SecondsOfSound)->Unit(benchmark::kMillisecond);
BENCHMARK(exportFullSoundMemory)->Unit(benchmark::kMillisecond);
BENCHMARK(restoreFullSoundMemory)->Unit(benchmark::kMillisecond);
BENCHMARK(resample50SecondsOf44100HertzStereo)->Unit(benchmark::kMillisecond);
BENCHMARK(export32Pictures)->Unit(benchmark::kMillisecond);
BENCHMARK(restore32Pictures)->Unit(benchmark::kMillisecond);
BENCHMARK(read20000Lyrics)->Unit(benchmark::kMillisecond);
BENCHMARK(save20000Lyrics)->Unit(benchmark::kMillisecond);

} // namespace
