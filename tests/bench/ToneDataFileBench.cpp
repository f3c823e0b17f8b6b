// Writing and importing the tone data file of a whole instrument, every patch and waveform included, beside the sum of
// the file's bytes.

#include "core/protocol/SimpleMIDIFileReader.h"
#include "core/tone/FactoryMelodyTable.h"
#include "core/tone/ToneDataFile.h"
#include "core/tone/ToneDataMIDIImporter.h"

#include <benchmark/benchmark.h>
#include <cstdint>
#include <numeric>
#include <vector>

namespace {

using namespace tonavelle;

const std::vector<std::uint8_t>& wholeFile()
{
    static const std::vector<std::uint8_t> file = toneDataFile(factoryToneInstrument(), everything);
    return file;
}

void countBytes(benchmark::State& state)
{
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * wholeFile().size()));
}

void sumOfBytes(benchmark::State& state)
{
    const auto& file = wholeFile();
    for (auto _ : state)
        benchmark::DoNotOptimize(std::accumulate(file.begin(), file.end(), 0u));
    countBytes(state);
}
BENCHMARK(sumOfBytes)->Unit(benchmark::kMillisecond);

void write(benchmark::State& state)
{
    const ToneInstrument instrument = factoryToneInstrument();
    for (auto _ : state)
        benchmark::DoNotOptimize(toneDataFile(instrument, everything));
    countBytes(state);
}
BENCHMARK(write)->Unit(benchmark::kMillisecond);

void writeEditedOnly(benchmark::State& state)
{
    const ToneInstrument instrument = factoryToneInstrument();
    for (auto _ : state)
        benchmark::DoNotOptimize(toneDataFile(instrument, {}));
}
BENCHMARK(writeEditedOnly)->Unit(benchmark::kMillisecond);

void readAndImport(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(readToneDataFile(wholeFile()));
    countBytes(state);
}
BENCHMARK(readAndImport)->Unit(benchmark::kMillisecond);

void importOnly(benchmark::State& state)
{
    const SimpleMIDIFile file = SimpleMIDIFileReader::read(wholeFile());
    for (auto _ : state)
        benchmark::DoNotOptimize(ToneDataMIDIImporter::importData(file, factoryToneData(), applyFactoryPreset));
    countBytes(state);
}
BENCHMARK(importOnly)->Unit(benchmark::kMillisecond);

} // namespace
