#pragma once

#include "core/tone/ToneParameterTable.h"
#include "core/tone/ToneRecords.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <utility>
#include <vector>

namespace tonavelle {

/// What is remembered of one MIDI channel's controller traffic; -1 is "not seen yet".
struct ChannelParseState {
    int nrpnMSB = -1;            ///< last controller 99
    int nrpnLSB = -1;            ///< last controller 98
    int rpnMSB = -1;             ///< last controller 101
    int rpnLSB = -1;             ///< last controller 100
    int dataMSB = 0;             ///< last controller 6
    bool isNRPNSelected = false; ///< the last selecting controller was 98 or 99
    bool isRPNSelected = false;  ///< the last selecting controller was 100 or 101
    int bankSelectMSB = 0;       ///< last controller 0
    int bankSelectLSB = 0;       ///< last controller 32

    bool operator==(const ChannelParseState&) const = default;
};

/// The module as far as its tone data goes: messages are played into it, one at a time.
class ToneModuleModel
{
public:
    /// Gives a channel the sound of a factory program, as the module does on a Program Change.
    using ApplyPresetVoice = std::function<void(int program, ChannelToneParameters& channel)>;

    ToneModuleModel(ImportedToneData initialState, ApplyPresetVoice applyPresetVoice);

    /// A whole message, status byte first. One that is unknown or malformed changes nothing.
    void play(std::span<const std::uint8_t> message);

    ImportedToneData result() && { return std::move(data); }
    const std::vector<ChannelParseState>& parseStates() const { return states; }

private:
    void programChange(std::size_t channel, int program);
    void applyBank(std::size_t channel);

    void controlChange(std::size_t channel, int controller, int value);
    void setController(std::size_t channel, int controller, int value);
    void selectParameter(ChannelParseState& state, int controller, int value);
    void dataEntryMSB(std::size_t channel, int value);
    void dataEntryLSB(std::size_t channel, int value);
    void setNRPN(std::size_t channel, int value);

    void sysEx(std::vector<std::uint8_t> message);
    void patchParameters(std::span<const std::uint8_t> message);
    void patchName(std::span<const std::uint8_t> message);
    void waveformData(std::span<const std::uint8_t> message);

    ImportedToneData data;
    std::vector<ChannelParseState> states; ///< one a channel, at least 16
    ApplyPresetVoice presetVoice;
};

} // namespace tonavelle
