#pragma once

#include "platform/MIDISystem.h"
#include "platform/RawMIDIStatus.h"
#include "platform/SequencerPort.h"

#include <string>
#include <vector>

namespace orvim {

/// The raw MIDI device of a card, and the output of that device, that a device port of the sequencer leads to.
unsigned deviceOf(SequencerAddress address);
unsigned subdeviceOf(SequencerAddress address);

/// The kernel's text about one raw MIDI device. The file stays open, and so never shows another device that gets the
/// same numbers later.
class RawMIDIStatusFile
{
public:
    RawMIDIStatusFile() = default;
    RawMIDIStatusFile(const RawMIDIStatusFile&) = delete;
    RawMIDIStatusFile& operator=(const RawMIDIStatusFile&) = delete;
    ~RawMIDIStatusFile();

    /// -ENODEV: there is no such device (any more); -EACCES: this user, or the container, may not look at devices.
    MIDIStatus open(int card, unsigned device);
    /// -ENODEV: the device is gone.
    MIDIStatus read(std::vector<RawMIDIStream>& streams);

private:
    int descriptor = -1;
    std::string text;
};

} // namespace orvim
