#pragma once

#include "core/tone/UserWaveform.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tonavelle {

/// The effect values of the whole module, as somebody gives them.
struct MasterToneValues {
    std::uint8_t reverbType = 0;          ///< 0 Normal, 1 Hall, 2 Room
    std::uint8_t chorusDepth = 100;       ///< 0...127
    std::uint8_t chorusFrequency = 9;     ///< 0...127
    std::uint8_t delayTime = 127;         ///< 0...127
    std::uint8_t delayFeedbackGain = 120; ///< 0...127
    std::uint8_t masterVolume = 127;      ///< 0...127

    bool operator==(const MasterToneValues&) const = default;
};

/// The effect values of the whole module. Made from values, each of which keeps its low seven bits:
/// `MasterToneParameters({.chorusDepth = 90})`.
struct MasterToneParameters : MasterToneValues {
    MasterToneParameters() = default;
    explicit MasterToneParameters(const MasterToneValues& values);

    bool operator==(const MasterToneParameters&) const = default;
};

/// Where a channel's program is looked up; `user` is selected by Bank Select MSB 16.
enum class ToneBankKind : std::uint8_t { preset = 0, user = 1 };

/// Whether a channel plays a melody program or a drum set; the raw value goes on the wire.
enum class ToneDrumTrackSetting : std::uint8_t { melody = 0, drum = 1 };

/// The state of one MIDI channel, as somebody gives it. A user patch uses the fields marked P only.
struct ChannelToneValues {
    ToneDrumTrackSetting drumTrackSetting = ToneDrumTrackSetting::melody;
    ToneBankKind bankKind = ToneBankKind::preset;
    std::uint8_t programChange = 0;        ///< 0...127, within the bank
    bool isReleaseActive = true;           ///< P: true ends the sound by its release, false lets it run to its end
    std::uint8_t waveType = 0;             ///< P: 0...11, index into `waveTypeNames`
    std::uint8_t waveNumber = 0;           ///< P: 0...12, the PCM number of the PCM wave types
    std::uint8_t ringModMultiply = 31;     ///< P: 0...127
    std::uint8_t ringModGain = 70;         ///< P: 0...127
    std::uint8_t sweepType = 2;            ///< P: 0...2, index into `sweepTypeNames`; 2 is no sweep
    std::uint8_t sweepSpeed = 0;           ///< P: 0...127
    std::uint8_t attack = 0;               ///< P: 0...127
    std::uint8_t decay = 5;                ///< P: 0...127
    std::uint8_t sustainLevel = 90;        ///< P: 0...127
    std::uint8_t sustainRate = 12;         ///< P: 0...127
    std::uint8_t release = 0;              ///< P: 0...127
    std::uint8_t outputGain = 48;          ///< P: 0...127
    std::uint8_t reverbSend = 20;          ///< 0...127
    std::uint8_t chorusSend = 0;           ///< 0...127
    std::uint8_t delaySend = 0;            ///< 0...127
    std::uint8_t distortionType = 0;       ///< 0...3
    std::uint8_t distortionLevel = 127;    ///< 0...127
    std::uint8_t distortionGain = 64;      ///< 0...127
    int cutOff = 0;                        ///< -64...63
    int resonance = 0;                     ///< -64...63
    std::uint8_t unisonNumber = 0;         ///< 0...127
    int unisonDetune = 0;                  ///< -64...63
    std::uint8_t volume = 100;             ///< 0...127
    std::uint8_t expression = 127;         ///< 0...127
    int panpot = 0;                        ///< -64...63
    int vibratoRate = 0;                   ///< -64...63
    std::uint8_t pitchBendSensitivity = 2; ///< 0...127
    int fineTuning = 0;                    ///< -8192...8191
    int coarseTuning = 0;                  ///< -64...63

    bool operator==(const ChannelToneValues&) const = default;
};

/// The state of one MIDI channel, or the sound of a user patch. Made from values: an unsigned one keeps its low seven
/// bits, a signed one is clamped to its range: `ChannelToneParameters({.cutOff = 10})`.
struct ChannelToneParameters : ChannelToneValues {
    ChannelToneParameters() = default;
    explicit ChannelToneParameters(const ChannelToneValues& values);

    std::uint8_t bankSelectMSB() const { return bankKind == ToneBankKind::user ? userBankSelectMSB : 0; }
    std::uint8_t bankSelectLSB() const { return 0; }

    bool operator==(const ChannelToneParameters&) const = default;

    static constexpr std::uint8_t userBankSelectMSB = 16;
};

/// One row of the factory melody table.
struct TonePreset {
    std::string name; ///< with its number, such as "001:Piano 1"
    std::uint8_t waveType = 0;
    std::uint8_t waveNumber = 0;
    std::uint8_t ringModMultiply = 0;
    std::uint8_t ringModGain = 0;
    std::uint8_t sweepType = 0;
    std::uint8_t sweepSpeed = 0;
    std::uint8_t attack = 0;
    std::uint8_t decay = 0;
    std::uint8_t sustainLevel = 0;
    std::uint8_t sustainRate = 0;
    std::uint8_t release = 0;
    bool isReleaseActive = false;
    std::uint8_t outputGain = 0;

    bool operator==(const TonePreset&) const = default;
};

/// One row of a program picker.
struct TonePresetMenuItem {
    int programIndex = 0; ///< 0-based
    std::string name;     ///< as shown

    bool operator==(const TonePresetMenuItem&) const = default;
};

/// One user melody or user drum patch.
struct UserTonePatch {
    int id = 0;       ///< its place in the list: the user program of a melody, the MIDI note of a drum
    std::string name; ///< at most 12 characters once normalized
    ChannelToneParameters parameters;
    std::uint8_t noteNumber = 0;           ///< drums: the pitch at which the module plays the sound; melodies keep 0
    std::optional<int> presetProgram = {}; ///< the row of the preset menu last loaded, if any

    bool operator==(const UserTonePatch&) const = default;
};

/// The factory value of one drum note.
struct UserDrumDefaultPatch {
    std::string name;
    ChannelToneParameters parameters;
    std::uint8_t noteNumber = 0;

    bool operator==(const UserDrumDefaultPatch&) const = default;
};

/// A user patch as it comes from a file.
struct ImportedUserPatch {
    std::string name;
    ChannelToneParameters parameters;
    std::uint8_t noteNumber = 0;

    bool operator==(const ImportedUserPatch&) const = default;
};

/// The result of reading a tone data file.
struct ImportedToneData {
    MasterToneParameters master;
    std::vector<ChannelToneParameters> channels;
    std::vector<ImportedUserPatch> userMelodies;
    std::vector<ImportedUserPatch> userDrums;
    std::string userDrumName;
    std::vector<UserWaveform> userWaveforms;

    bool operator==(const ImportedToneData&) const = default;
};

} // namespace tonavelle
