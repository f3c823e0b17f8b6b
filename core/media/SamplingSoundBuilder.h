#pragma once

#include "core/protocol/Message.h"

#include <cstddef>
#include <cstdint>
#include <exception>
#include <map>
#include <span>
#include <vector>

namespace tonavelle {

/// Why sounds could not be made into messages.
class SamplingSoundError : public std::exception
{
public:
    enum class Case {
        invalidSoundNumber,        ///< carries the sound number, 32 or more
        invalidSectionNumber,      ///< carries the section number, negative
        invalidSectionSampleCount, ///< carries the number of codes, not 128
        tooManySamples,            ///< carries the number of samples, above 1,200,000
        invalidAddressRange,       ///< start or count is negative, or their sum is above 1,200,000; carries 0
    };
    using enum Case;

    SamplingSoundError(Case errorCase, std::int64_t value = 0) : m_case(errorCase), m_value(value) {}

    Case errorCase() const { return m_case; }
    std::int64_t value() const { return m_value; }
    const char* what() const noexcept override { return "SamplingSoundError"; }

    friend bool operator==(const SamplingSoundError& left, const SamplingSoundError& right)
    {
        return left.m_case == right.m_case && left.m_value == right.m_value;
    }

private:
    Case m_case;
    std::int64_t m_value;
};

/// One sound: signed 16-bit samples, low byte first, mono, 24,000 a second.
struct SamplingSoundItem {
    std::vector<std::uint8_t> pcm16LittleEndian;

    /// A last odd byte is no sample.
    std::size_t sampleCount() const { return pcm16LittleEndian.size() / 2; }

    bool operator==(const SamplingSoundItem&) const = default;
};

/// The codes of each section by its number.
using SoundSections = std::map<std::int64_t, std::vector<std::uint8_t>>;

} // namespace tonavelle

/// Sampled sounds as the messages that fill the module's sound memory.
namespace tonavelle::SamplingSoundBuilder {

inline constexpr int maxSoundCount = 32;
inline constexpr std::int64_t maxSampleCount = 1'200'000; ///< of all sounds together, 50 seconds
inline constexpr std::size_t sectionSampleCount = 128;
inline constexpr int sampleRate = 24'000;
inline constexpr std::uint8_t padCode = 0x40; ///< silence
inline constexpr double volumeFactor = 0.56234;

/// A 16-bit sample as a 7-bit logarithmic code; 64 is silence.
std::uint8_t encodeULaw7Bit(std::int16_t pcm);
/// The sample in the middle of a code's range; of the code the low seven bits count.
std::int16_t decodeULaw7Bit(std::uint8_t code);

/// The codes of all sounds, one behind the other, of samples at 0.56234 of their volume if `reduceVolume` is set.
std::vector<std::uint8_t> serializeULawSamples(std::span<const SamplingSoundItem> items, bool reduceVolume);

/// The messages that fill the sound memory, at least one; the last is filled up with silence. Throws
/// SamplingSoundError.
Batch buildSendDataSections(std::span<const SamplingSoundItem> items, bool reduceVolume);

/// Throws SamplingSoundError for a negative `sectionNumber`, then for other than 128 codes.
Message samplingSoundSendData(std::int64_t sectionNumber, std::span<const std::uint8_t> codes);

/// The messages that tell where each sound lies; a sound's number is its place. Throws SamplingSoundError.
Batch buildSettings(std::span<const SamplingSoundItem> items);

/// Throws SamplingSoundError for a sound above 31, then for a range that does not lie in the sound memory.
Message samplingSoundSetting(std::uint8_t soundNumber, std::int64_t startSample, std::int64_t sampleCount);

/// A sound of `sampleCount` samples from its sections; silence where a section or its end is missing.
std::vector<std::uint8_t> restorePCM16LittleEndian(const SoundSections& sections, std::int64_t startSample,
                                                   std::int64_t sampleCount);

} // namespace tonavelle::SamplingSoundBuilder
