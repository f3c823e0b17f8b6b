#include "core/media/SamplingSoundBuilder.h"

#include "core/protocol/SysExBuilder.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tonavelle::SamplingSoundBuilder {

namespace {

using Error = SamplingSoundError;

constexpr int centreCode = 64;
constexpr int codesBesideCentre = 63;
constexpr int compandingBase = 128;
constexpr double codesPerNaturalLogarithm = codesBesideCentre / 4.852030263919617; ///< divided by ln 128
constexpr double fullScale = 32'768;

std::int16_t sampleAt(std::span<const std::uint8_t> pcm, std::size_t index)
{
    return static_cast<std::int16_t>(pcm[2 * index] | pcm[2 * index + 1] << 8);
}

void putSample(std::span<std::uint8_t> pcm, std::size_t index, std::int16_t sample)
{
    pcm[2 * index] = static_cast<std::uint8_t>(sample);
    pcm[2 * index + 1] = static_cast<std::uint8_t>(sample >> 8);
}

/// 21 bits, seven a byte, high byte first.
std::array<std::uint8_t, 3> address(std::int64_t value)
{
    return {static_cast<std::uint8_t>(value >> 14 & 0x7F), static_cast<std::uint8_t>(value >> 7 & 0x7F),
            static_cast<std::uint8_t>(value & 0x7F)};
}

/// The code of every sample, by its 16 bits: a logarithm each time takes longer than everything else about a sound.
const std::array<std::uint8_t, 0x10000>& codesBySample()
{
    static const auto table = [] {
        std::array<std::uint8_t, 0x10000> codes;
        for (std::size_t bits = 0; bits < codes.size(); ++bits)
            codes[bits] = encodeULaw7Bit(static_cast<std::int16_t>(bits));
        return codes;
    }();
    return table;
}

} // namespace

std::uint8_t encodeULaw7Bit(std::int16_t pcm)
{
    if (pcm == 0) return centreCode;
    const double magnitude = std::abs(static_cast<double>(pcm)) / fullScale;
    const double distance = std::log(1 + (compandingBase - 1) * magnitude) * codesPerNaturalLogarithm;
    const int steps = static_cast<int>(distance + 0.5);
    return static_cast<std::uint8_t>(std::clamp(centreCode + steps * (pcm < 0 ? -1 : 1), 0, 127));
}

std::int16_t decodeULaw7Bit(std::uint8_t code)
{
    const int steps = (code & 0x7F) - centreCode;
    if (steps == 0) return 0;
    const double distance = std::abs(steps) / static_cast<double>(codesBesideCentre);
    const double magnitude = (std::pow(2.0, 7 * distance) - 1) / (compandingBase - 1) * fullScale;
    return static_cast<std::int16_t>(std::clamp(std::lround(steps < 0 ? -magnitude : magnitude), -32'768L, 32'767L));
}

std::vector<std::uint8_t> serializeULawSamples(std::span<const SamplingSoundItem> items, bool reduceVolume)
{
    std::size_t count = 0;
    for (const auto& item : items)
        count += item.sampleCount();
    std::vector<std::uint8_t> codes(count);
    auto code = codes.begin();
    const auto& codeOf = codesBySample();
    for (const auto& item : items) {
        for (std::size_t i = 0; i < item.sampleCount(); ++i) {
            std::int16_t sample = sampleAt(item.pcm16LittleEndian, i);
            if (reduceVolume) sample = static_cast<std::int16_t>(sample * volumeFactor);
            *code++ = codeOf[static_cast<std::uint16_t>(sample)];
        }
    }
    return codes;
}

Batch buildSendDataSections(std::span<const SamplingSoundItem> items, bool reduceVolume)
{
    std::int64_t count = 0;
    for (const auto& item : items)
        count += static_cast<std::int64_t>(item.sampleCount());
    if (count > maxSampleCount) throw Error(Error::tooManySamples, count);
    auto codes = serializeULawSamples(items, reduceVolume);
    const std::size_t sectionCount =
        std::max<std::size_t>((codes.size() + sectionSampleCount - 1) / sectionSampleCount, 1);
    codes.resize(sectionCount * sectionSampleCount, padCode);
    Batch sections;
    sections.reserve(sectionCount);
    for (std::size_t n = 0; n < sectionCount; ++n) {
        const auto part = std::span(codes).subspan(n * sectionSampleCount, sectionSampleCount);
        sections.push_back(samplingSoundSendData(static_cast<std::int64_t>(n), part));
    }
    return sections;
}

Message samplingSoundSendData(std::int64_t sectionNumber, std::span<const std::uint8_t> codes)
{
    if (sectionNumber < 0) throw Error(Error::invalidSectionNumber, sectionNumber);
    if (codes.size() != sectionSampleCount)
        throw Error(Error::invalidSectionSampleCount, static_cast<std::int64_t>(codes.size()));
    std::array<std::uint8_t, 2 + sectionSampleCount> parameters;
    parameters[0] = static_cast<std::uint8_t>(sectionNumber >> 7 & 0x7F);
    parameters[1] = static_cast<std::uint8_t>(sectionNumber & 0x7F);
    std::ranges::transform(codes, parameters.begin() + 2,
                           [](std::uint8_t code) { return static_cast<std::uint8_t>(code & 0x7F); });
    return SysExBuilder::frame(Command::samplingSoundSection, parameters);
}

Batch buildSettings(std::span<const SamplingSoundItem> items)
{
    Batch settings;
    std::int64_t start = 0;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const auto count = static_cast<std::int64_t>(items[i].sampleCount());
        settings.push_back(samplingSoundSetting(static_cast<std::uint8_t>(i), start, count));
        start += count;
    }
    return settings;
}

Message samplingSoundSetting(std::uint8_t soundNumber, std::int64_t startSample, std::int64_t sampleCount)
{
    if (soundNumber >= maxSoundCount) throw Error(Error::invalidSoundNumber, soundNumber);
    if (startSample < 0 || sampleCount < 0 || startSample > maxSampleCount ||
        sampleCount > maxSampleCount - startSample)
        throw Error(Error::invalidAddressRange);
    const auto start = address(startSample);
    const auto count = address(sampleCount);
    return SysExBuilder::frame(
        Command::samplingSoundSetting,
        std::array<std::uint8_t, 7>{soundNumber, start[0], start[1], start[2], count[0], count[1], count[2]});
}

std::vector<std::uint8_t> restorePCM16LittleEndian(const SoundSections& sections, std::int64_t startSample,
                                                   std::int64_t sampleCount)
{
    if (sampleCount < 1) return {};
    // A sound has many samples and few different codes.
    static const auto samples = [] {
        std::array<std::int16_t, 128> table;
        for (std::size_t code = 0; code < table.size(); ++code)
            table[code] = decodeULaw7Bit(static_cast<std::uint8_t>(code));
        return table;
    }();
    constexpr auto sectionSize = static_cast<std::int64_t>(sectionSampleCount);
    std::vector<std::uint8_t> pcm(static_cast<std::size_t>(sampleCount) * 2);
    const std::int64_t end = startSample + sampleCount;
    for (auto section = sections.lower_bound(startSample / sectionSize); section != sections.end(); ++section) {
        const std::int64_t sectionStart = section->first * sectionSize;
        if (sectionStart >= end) break;
        const auto& codes = section->second;
        const std::int64_t codeEnd = sectionStart + std::min<std::int64_t>(std::ssize(codes), sectionSize);
        for (std::int64_t place = std::max(sectionStart, startSample); place < std::min(codeEnd, end); ++place) {
            const std::uint8_t code = codes[static_cast<std::size_t>(place - sectionStart)] & 0x7F;
            putSample(pcm, static_cast<std::size_t>(place - startSample), samples[code]);
        }
    }
    return pcm;
}

} // namespace tonavelle::SamplingSoundBuilder
