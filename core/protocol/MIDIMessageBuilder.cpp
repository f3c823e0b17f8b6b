#include "core/protocol/MIDIMessageBuilder.h"

#include "core/protocol/MIDINumbers.h"

#include <algorithm>

namespace tonavelle::MIDIMessageBuilder {

namespace {

constexpr int channelCount = 16;
constexpr int largestFourteenBitValue = 16383;
constexpr int samplingSoundMSB = 0x0B;
constexpr int samplingSoundLSB = 0x00;

std::uint8_t status(ChannelStatus kind, int channel)
{
    return static_cast<std::uint8_t>(static_cast<int>(kind) | (channel & 0x0F));
}

std::uint8_t data(int value)
{
    return static_cast<std::uint8_t>(value & 0x7F);
}

int fourteenBit(int value)
{
    return std::clamp(value, 0, largestFourteenBitValue);
}

} // namespace

Message noteOn(int channel, int note, int velocity)
{
    return {status(ChannelStatus::noteOn, channel), data(note), data(velocity)};
}

Message noteOff(int channel, int note, int velocity)
{
    return {status(ChannelStatus::noteOff, channel), data(note), data(velocity)};
}

Message controlChange(int channel, int controller, int value)
{
    return {status(ChannelStatus::controlChange, channel), data(controller), data(value)};
}

Message programChange(int channel, int program)
{
    return {status(ChannelStatus::programChange, channel), data(program)};
}

Message pitchBend(int channel, int value)
{
    const int bend = fourteenBit(value);
    return {status(ChannelStatus::pitchBend, channel), data(bend), data(bend >> 7)};
}

Batch allSoundOffMessages()
{
    Batch batch;
    for (int channel = 0; channel < channelCount; ++channel)
        batch.push_back(controlChange(channel, Controller::allSoundOff, 0));
    return batch;
}

Batch nrpn(int channel, int msb, int lsb, int dataMSB, int dataLSB)
{
    return {
        controlChange(channel, Controller::nrpnMSB, msb),
        controlChange(channel, Controller::nrpnLSB, lsb),
        controlChange(channel, Controller::dataEntryMSB, dataMSB),
        controlChange(channel, Controller::dataEntryLSB, dataLSB),
    };
}

Batch rpn(int channel, int msb, int lsb, int dataMSB, int dataLSB)
{
    Batch batch = rpnWithoutDataLSB(channel, msb, lsb, dataMSB);
    batch.push_back(controlChange(channel, Controller::dataEntryLSB, dataLSB));
    return batch;
}

Batch rpnWithoutDataLSB(int channel, int msb, int lsb, int dataMSB)
{
    return {
        controlChange(channel, Controller::rpnMSB, msb),
        controlChange(channel, Controller::rpnLSB, lsb),
        controlChange(channel, Controller::dataEntryMSB, dataMSB),
    };
}

Batch rpnOneData(int channel, int msb, int lsb, int value)
{
    const int limited = fourteenBit(value);
    return rpn(channel, msb, lsb, limited / 128, limited % 128);
}

Batch samplingSoundPlay(int soundNumber)
{
    return nrpn(0, samplingSoundMSB, samplingSoundLSB, soundNumber, 0);
}

} // namespace tonavelle::MIDIMessageBuilder
