// Reading and writing three kinds of file, each beside the sum of the file's bytes and, for writing, a copy of the
// file: 9,375 System Exclusive messages of 137 bytes, running-status notes on 16 tracks, and 1,000 small songs.

#include "core/protocol/MIDIEventParser.h"
#include "core/protocol/SimpleMIDIFileBuilder.h"
#include "core/protocol/SimpleMIDIFileReader.h"

#include <sys/resource.h>

#include <array>
#include <benchmark/benchmark.h>
#include <cstdint>
#include <numeric>
#include <span>
#include <string>
#include <vector>

namespace {

using namespace tonavelle;
using Bytes = std::vector<std::uint8_t>;

void append(Bytes& bytes, std::span<const std::uint8_t> more)
{
    for (const std::uint8_t byte : more)
        bytes.push_back(byte);
}

/// `trackCount` tracks that fill `byteCount` bytes with notes: one status byte, then delta, note and velocity.
Bytes notesFile(int trackCount, std::size_t byteCount)
{
    Bytes file{'M', 'T', 'h', 'd', 0, 0, 0, 6, 0, 1, 0, static_cast<std::uint8_t>(trackCount), 1, 0xE0};
    for (int track = 0; track < trackCount; ++track) {
        Bytes data{0, static_cast<std::uint8_t>(0x90 | track), 60, 100};
        while (data.size() < byteCount / static_cast<std::size_t>(trackCount)) {
            const auto step = static_cast<std::uint8_t>(data.size() / 3 % 100);
            append(data, std::array<std::uint8_t, 3>{step, static_cast<std::uint8_t>(step / 2), 100});
        }
        append(data, std::array<std::uint8_t, 4>{0, 0xFF, 0x2F, 0});
        append(file, std::array<std::uint8_t, 4>{'M', 'T', 'r', 'k'});
        append(file, SimpleMIDIFileBuilder::encodeUInt32BigEndian(static_cast<std::uint32_t>(data.size())));
        append(file, data);
    }
    return file;
}

Bytes sysExFile()
{
    std::vector<SimpleMIDITimedEvent> events;
    for (int i = 0; i < 9375; ++i) {
        Message message(137, static_cast<std::uint8_t>(i & 0x7F));
        message.front() = 0xF0;
        message.back() = 0xF7;
        events.push_back({480 + i, message});
    }
    return SimpleMIDIFileBuilder::wpfStyleSequence(events, 480);
}

enum Kind { sysEx, notes, smallSongs };

std::vector<Bytes> filesOf(std::int64_t kind)
{
    if (kind == sysEx) return {sysExFile()};
    if (kind == notes) return {notesFile(16, 10'000'000)};
    return std::vector<Bytes>(1000, notesFile(16, 10'000));
}

std::size_t byteCount(const std::vector<Bytes>& files)
{
    return std::accumulate(files.begin(), files.end(), std::size_t(0),
                           [](std::size_t sum, const Bytes& file) { return sum + file.size(); });
}

void finish(benchmark::State& state, const std::vector<Bytes>& files)
{
    rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    static const char* const names[] = {"SysEx, 1.3 MB", "notes, 10 MB", "1,000 songs of 10 KB"};
    state.SetLabel(std::string(names[state.range(0)]) + ", peak so far " + std::to_string(usage.ru_maxrss / 1024) +
                   " MB");
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(byteCount(files)));
}

void sumBytes(benchmark::State& state)
{
    const auto files = filesOf(state.range(0));
    for (auto _ : state) {
        for (const auto& file : files)
            benchmark::DoNotOptimize(std::accumulate(file.begin(), file.end(), std::uint64_t(0)));
    }
    finish(state, files);
}

/// Each file takes the place of the one before, as in an editor; its memory has been handed out before.
void read(benchmark::State& state)
{
    const auto files = filesOf(state.range(0));
    SimpleMIDIFile open;
    for (auto _ : state) {
        for (const auto& file : files) {
            open = SimpleMIDIFileReader::read(file);
            benchmark::DoNotOptimize(open);
        }
    }
    finish(state, files);
}

/// Each file is gone before the next is read: the time of a first read, with the system handing out every page anew.
void readIntoFreshMemory(benchmark::State& state)
{
    const auto files = filesOf(state.range(0));
    for (auto _ : state) {
        for (const auto& file : files)
            benchmark::DoNotOptimize(SimpleMIDIFileReader::read(file));
    }
    finish(state, files);
}

void parse(benchmark::State& state)
{
    const auto files = filesOf(state.range(0));
    for (auto _ : state) {
        for (const auto& file : files)
            benchmark::DoNotOptimize(parseMIDIEvents(file));
    }
    finish(state, files);
}

void copyBytes(benchmark::State& state)
{
    const auto files = filesOf(state.range(0));
    for (auto _ : state) {
        for (const auto& file : files) {
            Bytes copy = file;
            benchmark::DoNotOptimize(copy.data());
        }
    }
    finish(state, files);
}

void write(benchmark::State& state)
{
    const auto files = filesOf(state.range(0));
    std::vector<SimpleMIDIFile> read;
    for (const auto& file : files)
        read.push_back(SimpleMIDIFileReader::read(file));
    for (auto _ : state) {
        for (const auto& file : read)
            benchmark::DoNotOptimize(SimpleMIDIFileBuilder::file(file.format, file.ticksPerQuarterNote, file.tracks));
    }
    finish(state, files);
}

// The notes come first: nothing before them may have raised the peak.
void allKinds(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(notes)->Arg(sysEx)->Arg(smallSongs)->Unit(benchmark::kMillisecond);
}

BENCHMARK(sumBytes)->Apply(allKinds);
BENCHMARK(readIntoFreshMemory)->Apply(allKinds);
BENCHMARK(read)->Apply(allKinds);
BENCHMARK(parse)->Apply(allKinds);
BENCHMARK(copyBytes)->Apply(allKinds);
BENCHMARK(write)->Apply(allKinds);

} // namespace
