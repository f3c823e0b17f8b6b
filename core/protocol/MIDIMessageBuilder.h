#pragma once

#include "core/protocol/Message.h"

/// Channel messages and the standard controller sequences. None can fail: of a channel (0...15) the low four bits
/// count, of a data byte (0...127) the low seven.
namespace tonavelle::MIDIMessageBuilder {

Message noteOn(int channel, int note, int velocity);
Message noteOff(int channel, int note, int velocity);
Message controlChange(int channel, int controller, int value);
Message programChange(int channel, int program);

/// `value` is limited to 0...16383; 8192 is the middle.
Message pitchBend(int channel, int value);

/// Silences all 16 channels, in order.
Batch allSoundOffMessages();

/// Writes a non-registered parameter and leaves it selected.
Batch nrpn(int channel, int msb, int lsb, int dataMSB, int dataLSB);

/// Writes a registered parameter and leaves it selected.
Batch rpn(int channel, int msb, int lsb, int dataMSB, int dataLSB);
Batch rpnWithoutDataLSB(int channel, int msb, int lsb, int dataMSB);

/// As `rpn`, with one `value` for both data bytes, limited to 0...16383.
Batch rpnOneData(int channel, int msb, int lsb, int value);

/// Plays a stored sampled sound, on the first channel.
Batch samplingSoundPlay(int soundNumber);

} // namespace tonavelle::MIDIMessageBuilder
