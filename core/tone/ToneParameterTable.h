#pragma once

#include "core/tone/ToneRecords.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <variant>

namespace tonavelle {

/// Every value that the tone editor edits, in the order in which its controls stand. The case is the row of the table.
enum class ToneParameterID : std::uint8_t {
    reverbType,
    chorusDepth,
    chorusFrequency,
    delayTime,
    delayFeedbackGain,
    masterVolume,
    drumTrackSetting,
    bankKind,
    programChange,
    reverbSend,
    chorusSend,
    delaySend,
    distortionType,
    distortionLevel,
    distortionGain,
    cutOff,
    resonance,
    unisonNumber,
    unisonDetune,
    volume,
    expression,
    panpot,
    vibratoRate,
    pitchBendSensitivity,
    fineTuning,
    coarseTuning,
    waveType,
    waveNumber,
    ringModMultiply,
    ringModGain,
    attack,
    decay,
    sustainLevel,
    sustainRate,
    release,
    isReleaseActive,
    sweepType,
    sweepSpeed,
    outputGain,
};

/// The groups under which the editor shows its controls; `caption(group)` gives the words.
enum class ToneControlGroup : std::uint8_t {
    reverb,
    chorus,
    delay,
    masterVolume,
    bank, ///< without a caption
    program,
    effectSend,
    distortion,
    filter,
    unison,
    volumeAndPan,
    pitch,
    oscillators,
    envelope,
    sweep,
    loudness,
};

/// What kind of message carries a value to the module, and its numbers.
struct ToneCarrier {
    enum class Kind : std::uint8_t {
        controller,       ///< Control Change `number`
        nrpn,             ///< NRPN `msb`/`number`, the value in the data MSB
        rpn,              ///< RPN `msb`/`number`, the value in the data MSB
        rpnFourteenBit,   ///< RPN `msb`/`number`, the value in both data bytes
        programSelection, ///< Bank Select and Program Change together
        masterVolume,     ///< the universal System Exclusive message
    };
    Kind kind = Kind::controller;
    std::uint8_t msb = 0;
    std::uint8_t number = 0;

    bool operator==(const ToneCarrier&) const = default;
};

struct ToneValueRange {
    int lowest = 0;
    int highest = 127;

    bool operator==(const ToneValueRange&) const = default;
};

/// The record's field that a row stands for.
using ToneField = std::variant<std::uint8_t MasterToneValues::*, std::uint8_t ChannelToneValues::*,
                               int ChannelToneValues::*, bool ChannelToneValues::*,
                               ToneDrumTrackSetting ChannelToneValues::*, ToneBankKind ChannelToneValues::*>;

/// How a value is chosen from names: side by side, or from a list that opens.
enum class ToneChoiceControl : std::uint8_t { buttons, menu };

/// All that is known of one tone parameter.
struct ToneParameter {
    ToneParameterID id;
    std::string_view label; ///< under which a change is sent
    ToneValueRange range;
    int wireOffset; ///< added to the value on the wire
    ToneControlGroup group;
    ToneCarrier carrier;
    std::size_t patchOffset; ///< its byte in a patch parameter message; 0 when patches do not carry it
    ToneField field;
    std::span<const std::string_view> choices = {};    ///< the names of its values where it is chosen by name
    std::optional<std::string_view> controlLabel = {}; ///< where the control is named otherwise than the send
    ToneChoiceControl choiceControl = ToneChoiceControl::buttons; ///< where it is chosen by name

    std::string_view caption() const { return controlLabel.value_or(label); }
};

inline constexpr std::array<std::string_view, 12> waveTypeNames{
    "SINE", "SQUARE",      "TRIANGLE",    "SAW",         "WHITE NOISE", "PINK NOISE",
    "PCM",  "PCM Reverse", "User Wave 1", "User Wave 2", "User Wave 3", "User Wave 4",
};
inline constexpr std::array<std::string_view, 3> sweepTypeNames{"UP", "DOWN", "NONE"};
inline constexpr std::array<std::string_view, 3> reverbTypeNames{"Normal", "Hall", "Room"};
inline constexpr std::array<std::string_view, 4> distortionTypeNames{"OFF", "Hard Clip", "Soft Clip", "Assym"};
inline constexpr std::array<std::string_view, 2> drumTrackSettingNames{"Melody", "Drum"};
inline constexpr std::array<std::string_view, 2> bankKindNames{"Preset", "User"};

/// All rows, those of the master record first, each group's rows together.
std::span<const ToneParameter> toneParameterRows();
std::span<const ToneParameter> masterToneParameterRows();
std::span<const ToneParameter> channelToneParameterRows();
const ToneParameter& toneParameter(ToneParameterID id);

/// Whether the row stands for a field of the master record rather than of a channel.
bool isMasterParameter(const ToneParameter& parameter);

/// The row that a controller, an NRPN or an RPN of these numbers carries; null where there is none.
const ToneParameter* findToneParameter(const ToneCarrier& carrier);

std::string_view caption(ToneControlGroup group);

/// A record's value as the editor shows it; a truth is 1 or 0. The row must be one of that record.
int value(const ToneParameter& parameter, const MasterToneParameters& master);
int value(const ToneParameter& parameter, const ChannelToneParameters& channel);

/// Stores a value as the record's constructor would: low seven bits, or clamped to the range where it is signed.
void setValue(const ToneParameter& parameter, MasterToneParameters& master, int value);
void setValue(const ToneParameter& parameter, ChannelToneParameters& channel, int value);

/// The number that goes to the module: 0...127, or 0...16383 for a carrier of fourteen bits.
int wireValue(const ToneParameter& parameter, const MasterToneParameters& master);
int wireValue(const ToneParameter& parameter, const ChannelToneParameters& channel);

/// Stores a number that was meant for the module, without further limits.
void setWireValue(const ToneParameter& parameter, MasterToneParameters& master, int wire);
void setWireValue(const ToneParameter& parameter, ChannelToneParameters& channel, int wire);

} // namespace tonavelle
