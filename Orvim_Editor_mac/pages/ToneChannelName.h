#pragma once

#include "core/tone/ToneInstrument.h"

namespace orvim {

class DisplaySimulatorState;

/// Tells the screen's list what a channel (0...15) of these parameters plays. For a channel in use they are its own
/// record, for a preview they stand for what is heard.
void showChannelName(DisplaySimulatorState& simulator, int channel, const tonavelle::ChannelToneParameters& parameters,
                     const tonavelle::ToneInstrument& instrument);

} // namespace orvim
