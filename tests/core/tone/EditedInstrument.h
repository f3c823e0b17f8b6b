#pragma once

#include "core/tone/ToneInstrument.h"

#include <cstddef>
#include <cstdint>

namespace tonavelle::test {

/// The instrument of golden/edited.hex: every master value and every value of channel 1 changed, most to an end of its
/// range; channel 2 in the user bank, channel 3 on the user drum set, channel 10 tuned by one step, channel 16 on
/// another program; two melodies of one name, of which the second keeps its sound; a drum note at another pitch; the
/// drum set's name; a rising ramp in the third waveform.
inline ToneInstrument editedInstrument()
{
    ToneInstrument instrument = factoryToneInstrument();
    instrument.master = MasterToneParameters({.reverbType = 2,
                                              .chorusDepth = 1,
                                              .chorusFrequency = 2,
                                              .delayTime = 3,
                                              .delayFeedbackGain = 4,
                                              .masterVolume = 5});
    instrument.channels[0] = ChannelToneParameters({.programChange = 80,
                                                    .isReleaseActive = false,
                                                    .waveType = 8,
                                                    .waveNumber = 12,
                                                    .ringModMultiply = 1,
                                                    .ringModGain = 127,
                                                    .sweepType = 0,
                                                    .sweepSpeed = 100,
                                                    .attack = 127,
                                                    .decay = 0,
                                                    .sustainLevel = 127,
                                                    .sustainRate = 0,
                                                    .release = 35,
                                                    .outputGain = 30,
                                                    .reverbSend = 127,
                                                    .chorusSend = 64,
                                                    .delaySend = 1,
                                                    .distortionType = 3,
                                                    .distortionLevel = 5,
                                                    .distortionGain = 6,
                                                    .cutOff = -64,
                                                    .resonance = 63,
                                                    .unisonNumber = 4,
                                                    .unisonDetune = -1,
                                                    .volume = 0,
                                                    .expression = 1,
                                                    .panpot = -64,
                                                    .vibratoRate = 63,
                                                    .pitchBendSensitivity = 12,
                                                    .fineTuning = -8192,
                                                    .coarseTuning = -64});
    instrument.channels[1] = ChannelToneParameters(
        {.bankKind = ToneBankKind::user, .programChange = 3, .panpot = 63, .fineTuning = 8191, .coarseTuning = 63});
    instrument.channels[2] =
        ChannelToneParameters({.drumTrackSetting = ToneDrumTrackSetting::drum, .bankKind = ToneBankKind::user});
    instrument.channels[9].fineTuning = 1;
    instrument.channels[15].programChange = 127;

    instrument.userMelodies[3].name = "Warm";
    instrument.userMelodies[3].parameters.waveType = 3;
    instrument.userMelodies[3].parameters.attack = 90;
    instrument.userMelodies[3].parameters.release = 40;
    instrument.userMelodies[127].name = "Warm";
    instrument.userDrums[38].noteNumber = 70;
    instrument.drumSetName = "My Kit";
    for (std::size_t i = 0; i < instrument.userWaveforms[2].size(); ++i)
        instrument.userWaveforms[2][i] = static_cast<std::int16_t>(static_cast<int>(i) * 32 - 32768);
    return instrument;
}

} // namespace tonavelle::test
