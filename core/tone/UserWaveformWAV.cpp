#include "core/tone/SampleRounding.h"
#include "core/tone/UserWaveformBuilder.h"

#include <algorithm>

namespace tonavelle::UserWaveformBuilder {

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::size_t headSize = 12; // "RIFF", a size and "WAVE"
constexpr std::size_t chunkHeadSize = 8;
constexpr std::size_t formatSize = 16;
constexpr std::size_t smallestFile = 44;
constexpr unsigned pcm = 1;
constexpr unsigned mono = 1;
constexpr unsigned bitsPerSample = 16;
constexpr unsigned bytesPerSample = bitsPerSample / 8;

void appendText(std::vector<std::uint8_t>& file, std::string_view text)
{
    file.insert(file.end(), text.begin(), text.end());
}

/// Appends the low `byteCount` bytes of a number, the lowest first.
void appendNumber(std::vector<std::uint8_t>& file, std::uint32_t value, int byteCount)
{
    for (int i = 0; i < byteCount; ++i)
        file.push_back(static_cast<std::uint8_t>(value >> 8 * i));
}

/// The number of up to four bytes, the lowest first.
std::uint32_t numberOf(Bytes bytes)
{
    std::uint32_t value = 0;
    for (std::size_t i = bytes.size(); i > 0; --i)
        value = value << 8 | bytes[i - 1];
    return value;
}

bool isText(Bytes bytes, std::string_view text)
{
    return std::ranges::equal(bytes, text, {}, {}, [](char c) { return static_cast<std::uint8_t>(c); });
}

struct Chunks {
    std::optional<Bytes> format; ///< the last "fmt " chunk of at least 16 bytes
    std::optional<Bytes> data;   ///< the last "data" chunk
};

/// Walks the chunks that follow the file's head. Fails on one that would end past the file.
Chunks readChunks(Bytes file)
{
    Chunks chunks;
    std::size_t position = headSize;
    while (position < file.size() && file.size() - position >= chunkHeadSize) {
        const Bytes name = file.subspan(position, 4);
        const std::size_t size = numberOf(file.subspan(position + 4, 4));
        position += chunkHeadSize;
        if (size > file.size() - position) throw UserWaveformError::invalidSampleCount();
        const Bytes payload = file.subspan(position, size);
        if (isText(name, "fmt ") && size >= formatSize) chunks.format = payload;
        if (isText(name, "data")) chunks.data = payload;
        position += size + size % 2;
    }
    return chunks;
}

bool isMonoPCM16(Bytes format)
{
    return numberOf(format.subspan(0, 2)) == pcm && numberOf(format.subspan(2, 2)) == mono &&
           numberOf(format.subspan(14, 2)) == bitsPerSample;
}

/// A sample of a "data" chunk.
std::int16_t sampleAt(Bytes data, std::size_t index)
{
    return static_cast<std::int16_t>(numberOf(data.subspan(index * bytesPerSample, bytesPerSample)));
}

/// Linear resampling of a "data" chunk of at least one sample onto 2,048 points that keeps the first and the last
/// sample. An odd last byte is none.
UserWaveform stretched(Bytes data)
{
    const std::size_t last = data.size() / bytesPerSample - 1;
    UserWaveform result(sampleCount);
    for (std::size_t i = 0; i < sampleCount; ++i) {
        const double place = static_cast<double>(last * i) / (sampleCount - 1);
        const auto before = static_cast<std::size_t>(place);
        const int from = sampleAt(data, before);
        const int to = sampleAt(data, std::min(before + 1, last));
        result[i] = nearestSample(from + (place - static_cast<double>(before)) * (to - from));
    }
    return result;
}

} // namespace

std::vector<std::uint8_t> wavData(std::span<const std::int16_t> waveform, std::uint32_t sampleRate)
{
    if (waveform.size() != sampleCount) throw UserWaveformError::invalidSampleCount();
    constexpr std::uint32_t dataSize = sampleCount * bytesPerSample;
    std::vector<std::uint8_t> file;
    file.reserve(smallestFile + dataSize);
    appendText(file, "RIFF");
    appendNumber(file, smallestFile - chunkHeadSize + dataSize, 4);
    appendText(file, "WAVE");
    appendText(file, "fmt ");
    appendNumber(file, formatSize, 4);
    appendNumber(file, pcm, 2);
    appendNumber(file, mono, 2);
    appendNumber(file, sampleRate, 4);
    appendNumber(file, sampleRate * bytesPerSample, 4);
    appendNumber(file, bytesPerSample, 2);
    appendNumber(file, bitsPerSample, 2);
    appendText(file, "data");
    appendNumber(file, dataSize, 4);
    for (const std::int16_t sample : waveform)
        appendNumber(file, static_cast<std::uint16_t>(sample), bytesPerSample);
    return file;
}

UserWaveform samplesFromWAVData(std::span<const std::uint8_t> file)
{
    if (file.size() < smallestFile || !isText(file.first(4), "RIFF") || !isText(file.subspan(8, 4), "WAVE"))
        throw UserWaveformError::invalidSampleCount();
    const Chunks chunks = readChunks(file);
    if (!chunks.format || !isMonoPCM16(*chunks.format) || !chunks.data) throw UserWaveformError::invalidSampleCount();
    if (chunks.data->size() < bytesPerSample) throw UserWaveformError::invalidSampleCount();
    // A single sample, and 2,048 of them, come out of the stretching as they are.
    return stretched(*chunks.data);
}

} // namespace tonavelle::UserWaveformBuilder
