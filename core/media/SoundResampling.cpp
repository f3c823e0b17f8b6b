#include "core/media/SoundResampling.h"

#include "core/media/SamplingSoundBuilder.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tonavelle::SamplingSoundBuilder {

std::int64_t outputSampleCount(std::int64_t frameCount, int targetRate, double sourceRate)
{
    if (!(sourceRate > 0) || targetRate < 1 || frameCount < 1) return 0;
    const double count = std::round(targetRate * static_cast<double>(frameCount) / sourceRate);
    constexpr double mostSamples = 1e15;
    return static_cast<std::int64_t>(std::min(count, mostSamples));
}

std::int64_t sourceFrame(std::int64_t index, std::int64_t frameCount, int targetRate, double sourceRate)
{
    const double frame = sourceRate * static_cast<double>(index) / targetRate;
    const auto last = frameCount - 1;
    return frame < static_cast<double>(last) ? static_cast<std::int64_t>(frame) : last;
}

std::int16_t pcm16Sample(float sample)
{
    constexpr float largest = 32'767.0f;
    if (std::isnan(sample)) return 0;
    if (sample >= 1.0f) return static_cast<std::int16_t>(largest);
    return static_cast<std::int16_t>(std::max(sample, -1.0f) * largest);
}

Resampler::Resampler(std::size_t channelCount, int targetRate, double sourceRate)
    : m_channelCount(channelCount), m_targetRate(targetRate), m_sourceRate(sourceRate)
{
}

void Resampler::add(std::span<const float> frames)
{
    constexpr auto unlimited = std::numeric_limits<std::int64_t>::max();
    const auto count = static_cast<std::int64_t>(frames.size() / m_channelCount);
    if (count == 0) return;
    for (;;) {
        const auto frame = sourceFrame(m_sampleCount, unlimited, m_targetRate, m_sourceRate) - m_frameCount;
        if (frame >= count) break;
        append(meanSample(frames.subspan(static_cast<std::size_t>(frame) * m_channelCount, m_channelCount)));
    }
    m_lastSample = meanSample(frames.last(m_channelCount));
    m_frameCount += count;
}

std::vector<std::uint8_t> Resampler::finished()
{
    const auto length = outputSampleCount(m_frameCount, m_targetRate, m_sourceRate);
    while (m_sampleCount < length)
        append(m_lastSample);
    m_pcm.resize(static_cast<std::size_t>(length) * 2);
    return std::move(m_pcm);
}

std::int16_t Resampler::meanSample(std::span<const float> frame) const
{
    float sum = 0;
    for (const float sample : frame)
        sum += sample;
    return pcm16Sample(sum / static_cast<float>(m_channelCount));
}

void Resampler::append(std::int16_t sample)
{
    const auto bits = static_cast<std::uint16_t>(sample);
    m_pcm.push_back(static_cast<std::uint8_t>(bits & 0xFF));
    m_pcm.push_back(static_cast<std::uint8_t>(bits >> 8));
    ++m_sampleCount;
}

std::vector<std::uint8_t> pcm16LittleEndian(std::span<const std::vector<float>> channels, int targetRate,
                                            double sourceRate)
{
    // A few frames at a very low rate may ask for any amount of memory.
    constexpr std::int64_t mostSamples = std::int64_t{12} * 60 * 60 * sampleRate;
    constexpr std::size_t blockFrames = 4'096;
    if (channels.empty()) return {};
    const std::size_t frameCount = channels.front().size();
    const auto sampleCount = outputSampleCount(static_cast<std::int64_t>(frameCount), targetRate, sourceRate);
    if (sampleCount < 1 || sampleCount >= mostSamples) return {};
    std::vector<std::span<const float>> kept;
    for (const auto& channel : channels) {
        if (channel.size() == frameCount) kept.push_back(channel);
    }
    Resampler resampler(kept.size(), targetRate, sourceRate);
    std::vector<float> frames;
    for (std::size_t start = 0; start < frameCount; start += blockFrames) {
        const std::size_t end = std::min(start + blockFrames, frameCount);
        frames.clear();
        for (std::size_t frame = start; frame < end; ++frame)
            for (const auto& channel : kept)
                frames.push_back(channel[frame]);
        resampler.add(frames);
    }
    return resampler.finished();
}

} // namespace tonavelle::SamplingSoundBuilder
