#include "pages/ToneChannelName.h"

#include "DisplaySimulatorState.h"
#include "core/tone/ToneNames.h"

namespace orvim {

void showChannelName(DisplaySimulatorState& simulator, int channel, const tonavelle::ChannelToneParameters& parameters,
                     const tonavelle::ToneInstrument& instrument)
{
    simulator.setPart(channel,
                      tonavelle::channelDisplayName(parameters, instrument.userMelodies, instrument.drumSetName),
                      parameters.bankKind == tonavelle::ToneBankKind::user,
                      parameters.drumTrackSetting == tonavelle::ToneDrumTrackSetting::drum, parameters.programChange);
}

} // namespace orvim
