#include "core/protocol/MIDIMessageBuilder.h"
#include "core/protocol/MIDINumbers.h"
#include "core/protocol/SysExBuilder.h"
#include "core/tone/ToneParameterTable.h"
#include "core/tone/UserWaveformBuilder.h"

#include <algorithm>

namespace tonavelle::UserWaveformBuilder {

namespace {

constexpr std::size_t nibblesPerSample = 4;
constexpr std::size_t dataStart = moduleFrameHead.size() + 3; // Command, slot and section stand before the data.
constexpr std::size_t messageSize = dataStart + samplesPerSection * nibblesPerSample + 1;

void checkSlot(int slot)
{
    if (slot < 0 || slot >= slotCount) throw UserWaveformError::invalidSlot();
}

/// The sample of four data bytes, the most significant nibble first.
std::int16_t sampleOf(std::span<const std::uint8_t> nibbles)
{
    const int bits = nibbles[0] << 12 | (nibbles[1] & 0x0F) << 8 | (nibbles[2] & 0x0F) << 4 | (nibbles[3] & 0x0F);
    return static_cast<std::int16_t>(static_cast<std::uint16_t>(bits));
}

/// The messages that write a parameter which an NRPN carries.
Batch parameterMessages(int channel, ToneParameterID id, int value)
{
    const ToneCarrier& carrier = toneParameter(id).carrier;
    return MIDIMessageBuilder::nrpn(channel, carrier.msb, carrier.number, value, 0);
}

} // namespace

Message sectionSysEx(int slot, int section, std::span<const std::int16_t> waveform)
{
    checkSlot(slot);
    if (section < 0 || section >= sectionCount) throw UserWaveformError::invalidSection();
    if (waveform.size() != sampleCount) throw UserWaveformError::invalidSampleCount();

    Message parameters{static_cast<std::uint8_t>(slot), static_cast<std::uint8_t>(section)};
    parameters.reserve(messageSize);
    const std::size_t start = static_cast<std::size_t>(section) * samplesPerSection;
    for (const std::int16_t sample : waveform.subspan(start, samplesPerSection)) {
        const auto bits = static_cast<std::uint16_t>(sample);
        for (int shift = 12; shift >= 0; shift -= 4)
            parameters.push_back(static_cast<std::uint8_t>(bits >> shift & 0x0F));
    }
    return SysExBuilder::frame(Command::waveformData, parameters);
}

Batch sysExMessages(int slot, std::span<const std::int16_t> waveform)
{
    Batch messages;
    messages.reserve(sectionCount);
    for (int section = 0; section < sectionCount; ++section)
        messages.push_back(sectionSysEx(slot, section, waveform));
    return messages;
}

std::optional<WaveformSection> decodedSectionSamples(std::span<const std::uint8_t> message)
{
    if (message.size() != messageSize || message.back() != 0xF7) return std::nullopt;
    const auto head = message.first(moduleFrameHead.size());
    const std::uint8_t command = message[moduleFrameHead.size()];
    if (!std::ranges::equal(head, moduleFrameHead) || command != static_cast<std::uint8_t>(Command::waveformData))
        return std::nullopt;

    WaveformSection result{message[dataStart - 2] & 0x7F, message[dataStart - 1] & 0x7F, {}};
    if (result.slot >= slotCount) return std::nullopt;
    for (std::size_t i = 0; i < samplesPerSection; ++i)
        result.samples[i] = sampleOf(message.subspan(dataStart + i * nibblesPerSample, nibblesPerSample));
    return result;
}

Batch previewMessages(int slot, int channel)
{
    checkSlot(slot);
    Batch messages = parameterMessages(channel, ToneParameterID::drumTrackSetting, 0);
    messages.push_back(MIDIMessageBuilder::controlChange(channel, Controller::bankSelectMSB, 0));
    messages.push_back(MIDIMessageBuilder::controlChange(channel, Controller::bankSelectLSB, 0));
    messages.push_back(MIDIMessageBuilder::programChange(channel, previewProgram));
    const Batch waveType = parameterMessages(channel, ToneParameterID::waveType, firstWaveType + slot);
    messages.insert(messages.end(), waveType.begin(), waveType.end());
    return messages;
}

} // namespace tonavelle::UserWaveformBuilder
