#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// Sounds of any rate and number of channels as samples that the module takes.
namespace tonavelle::SamplingSoundBuilder {

/// The number of samples that `frameCount` frames give, rounded to the nearest; 0 when there is nothing to convert.
/// Never more than 10^15.
std::int64_t outputSampleCount(std::int64_t frameCount, int targetRate, double sourceRate);

/// The frame that output sample `index` is taken from, for a `frameCount` of 1 or more.
std::int64_t sourceFrame(std::int64_t index, std::int64_t frameCount, int targetRate, double sourceRate);

/// A sample of -1...1 in 16 bits: 1 and above give 32,767, -1 and below -32,767, no number 0.
std::int16_t pcm16Sample(float sample);

/// Makes a sound of frames as they come, so that a long one is never held in memory as a whole: the channels' mean at
/// the nearest earlier frame of each output sample. It takes what it is given; ask outputSampleCount before for how
/// much that makes.
class Resampler
{
public:
    /// For one channel or more, and rates above 0.
    Resampler(std::size_t channelCount, int targetRate, double sourceRate);

    /// The next frames, one sample a channel each.
    void add(std::span<const float> frames);

    std::int64_t frameCount() const { return m_frameCount; }

    /// The sound in the format of SamplingSoundItem. Ends the use.
    std::vector<std::uint8_t> finished();

private:
    std::int16_t meanSample(std::span<const float> frame) const;
    void append(std::int16_t sample);

    std::size_t m_channelCount;
    int m_targetRate;
    double m_sourceRate;
    std::int64_t m_frameCount = 0;  ///< frames added
    std::int64_t m_sampleCount = 0; ///< samples made
    std::int16_t m_lastSample = 0;  ///< of the last frame added
    std::vector<std::uint8_t> m_pcm;
};

/// The channels' mean at the nearest earlier frame of each output sample, in the format of SamplingSoundItem. Channels
/// of another length than the first are left out; empty when there is nothing to convert, or twelve hours and more.
std::vector<std::uint8_t> pcm16LittleEndian(std::span<const std::vector<float>> channels, int targetRate,
                                            double sourceRate);

} // namespace tonavelle::SamplingSoundBuilder
