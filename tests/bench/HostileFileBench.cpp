// Files of 1.2 MB that were made to keep a reader busy, each beside the sum of the file's bytes.

#include "core/media/TransferMIDIFileBuilder.h"
#include "core/protocol/SimpleMIDIFileBuilder.h"
#include "core/protocol/SimpleMIDIFileReader.h"
#include "core/tone/FactoryMelodyTable.h"
#include "core/tone/ToneDataMIDIImporter.h"
#include "core/tone/ToneInstrument.h"
#include "core/tone/UserWaveformBuilder.h"

#include <benchmark/benchmark.h>
#include <cstdint>
#include <numeric>
#include <span>
#include <vector>

namespace {

using namespace tonavelle;
using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t fileSize = 1'200'000;

void append(Bytes& bytes, std::span<const std::uint8_t> more)
{
    bytes.insert(bytes.end(), more.begin(), more.end());
}

Bytes header(std::uint16_t trackCount)
{
    Bytes bytes{'M', 'T', 'h', 'd', 0, 0, 0, 6, 0, 1, 0, 0, 1, 0xE0};
    bytes[10] = static_cast<std::uint8_t>(trackCount >> 8);
    bytes[11] = static_cast<std::uint8_t>(trackCount);
    return bytes;
}

void appendTrack(Bytes& file, std::span<const std::uint8_t> data)
{
    append(file, Bytes{'M', 'T', 'r', 'k'});
    append(file, SimpleMIDIFileBuilder::encodeUInt32BigEndian(static_cast<std::uint32_t>(data.size())));
    append(file, data);
}

Bytes repeated(const Bytes& bytes)
{
    Bytes all;
    while (all.size() < fileSize)
        append(all, bytes);
    return all;
}

/// One track of the same event again and again.
Bytes fileOf(const Bytes& first, const Bytes& event)
{
    Bytes data = first;
    append(data, repeated(event));
    Bytes file = header(1);
    appendTrack(file, data);
    return file;
}

/// As many tracks as a header can declare, each one event whose data run to the end of the file. `event` is what stands
/// in front of the size of the data.
Bytes overlappingTracks(const Bytes& event)
{
    constexpr std::uint16_t trackCount = 65'535;
    const std::size_t chunkSize = 8 + event.size() + 3;
    Bytes file = header(trackCount);
    for (std::size_t left = trackCount; left-- > 0;) {
        const std::size_t size = left * chunkSize;
        Bytes data = event;
        append(data,
               Bytes{static_cast<std::uint8_t>(0x80 | size >> 14), static_cast<std::uint8_t>(0x80 | (size >> 7 & 0x7F)),
                     static_cast<std::uint8_t>(size & 0x7F)});
        appendTrack(file, data);
    }
    return file;
}

Bytes emptyTexts()
{
    return fileOf({}, {0x00, 0xFF, 0x01, 0x00});
}

Bytes emptySysExes()
{
    return fileOf({}, {0x00, 0xF0, 0x00});
}

Bytes controllers()
{
    return fileOf({0x00, 0xB0, 0x07, 0x00}, {0x00, 0x07, 0x50});
}

Bytes emptyWAVChunks()
{
    Bytes file{'R', 'I', 'F', 'F', 0, 0, 0, 0, 'W', 'A', 'V', 'E'};
    append(file, repeated({'L', 'I', 'S', 'T', 0, 0, 0, 0}));
    return file;
}

template <typename Action>
void measure(benchmark::State& state, const Bytes& file, const Action& action)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(action(file));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(file.size()));
}

void sumBytes(benchmark::State& state)
{
    measure(state, emptyTexts(),
            [](const Bytes& file) { return std::accumulate(file.begin(), file.end(), std::uint64_t(0)); });
}

void readEmptyTexts(benchmark::State& state)
{
    measure(state, emptyTexts(), [](const Bytes& file) { return SimpleMIDIFileReader::read(file); });
}

void readEmptySysExes(benchmark::State& state)
{
    measure(state, emptySysExes(), [](const Bytes& file) { return SimpleMIDIFileReader::read(file); });
}

void parseEmptyTexts(benchmark::State& state)
{
    measure(state, emptyTexts(), [](const Bytes& file) { return parseMIDIEvents(file); });
}

void parseEmptySysExes(benchmark::State& state)
{
    measure(state, emptySysExes(), [](const Bytes& file) { return parseMIDIEvents(file); });
}

void parseOverlappingSysExes(benchmark::State& state)
{
    measure(state, overlappingTracks({0x00, 0xF0}), [](const Bytes& file) { return parseMIDIEvents(file); });
}

void parseOverlappingTexts(benchmark::State& state)
{
    measure(state, overlappingTracks({0x00, 0xFF, 0x01}), [](const Bytes& file) { return parseMIDIEvents(file); });
}

void restoreSoundsFromOverlappingSysExes(benchmark::State& state)
{
    measure(state, overlappingTracks({0x00, 0xF0}),
            [](const Bytes& file) { return TransferMIDIFileBuilder::restoreSounds(parseMIDIEvents(file)); });
}

void readAndImportControllers(benchmark::State& state)
{
    measure(state, controllers(), [](const Bytes& file) {
        return ToneDataMIDIImporter::importData(SimpleMIDIFileReader::read(file), factoryToneData(),
                                                applyFactoryPreset);
    });
}

void walkEmptyWAVChunks(benchmark::State& state)
{
    measure(state, emptyWAVChunks(), [](const Bytes& file) {
        try {
            return UserWaveformBuilder::samplesFromWAVData(file);
        } catch (const UserWaveformError&) {
            return UserWaveform();
        }
    });
}

BENCHMARK(sumBytes)->Unit(benchmark::kMillisecond);
BENCHMARK(readEmptyTexts)->Unit(benchmark::kMillisecond);
BENCHMARK(readEmptySysExes)->Unit(benchmark::kMillisecond);
BENCHMARK(parseEmptyTexts)->Unit(benchmark::kMillisecond);
BENCHMARK(parseEmptySysExes)->Unit(benchmark::kMillisecond);
BENCHMARK(parseOverlappingSysExes)->Unit(benchmark::kMillisecond);
BENCHMARK(parseOverlappingTexts)->Unit(benchmark::kMillisecond);
BENCHMARK(restoreSoundsFromOverlappingSysExes)->Unit(benchmark::kMillisecond);
BENCHMARK(readAndImportControllers)->Unit(benchmark::kMillisecond);
BENCHMARK(walkEmptyWAVChunks)->Unit(benchmark::kMillisecond);

} // namespace
