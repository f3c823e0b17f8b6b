#include "core/tone/ToneModuleModel.h"

#include "core/protocol/MIDIFileFormat.h"
#include "core/protocol/MIDINumbers.h"
#include "core/protocol/ModuleCommands.h"
#include "core/tone/ToneDefaults.h"
#include "core/tone/ToneSysExLayout.h"
#include "core/tone/UserWaveformBuilder.h"

#include <algorithm>
#include <string>
#include <utility>

namespace tonavelle {

namespace {

using Kind = ToneCarrier::Kind;

constexpr std::size_t commandOffset = moduleFrameHead.size();

constexpr std::uint8_t lowSevenBits(std::uint8_t byte)
{
    return byte & 0x7F;
}

bool startsWith(std::span<const std::uint8_t> message, std::span<const std::uint8_t> head)
{
    return message.size() >= head.size() && std::ranges::equal(message.first(head.size()), head);
}

/// A continued message taken for a whole one, and one without its end completed.
std::vector<std::uint8_t> madeWhole(std::span<const std::uint8_t> message)
{
    std::vector<std::uint8_t> whole(message.begin(), message.end());
    whole.front() = MIDIFileFormat::sysExStatus;
    if (whole.back() != MIDIFileFormat::sysExEnd) whole.push_back(MIDIFileFormat::sysExEnd);
    return whole;
}

ToneCarrier carrier(Kind kind, int msb, int number)
{
    return {kind, static_cast<std::uint8_t>(msb), static_cast<std::uint8_t>(number)};
}

/// The patch that a message's class, program and drum key bytes address; null where there is none.
ImportedUserPatch* patchAt(std::vector<ImportedUserPatch>& patches, std::uint8_t index)
{
    const std::size_t place = lowSevenBits(index);
    return place < patches.size() ? &patches[place] : nullptr;
}

} // namespace

ToneModuleModel::ToneModuleModel(ImportedToneData initialState, ApplyPresetVoice applyPresetVoice)
    : data(std::move(initialState)), presetVoice(std::move(applyPresetVoice))
{
    for (const ChannelToneParameters& channel : data.channels)
        states.push_back({.bankSelectMSB = channel.bankSelectMSB()});
    if (states.size() < channelCount) states.resize(channelCount);
}

void ToneModuleModel::play(std::span<const std::uint8_t> message)
{
    if (message.empty()) return;
    const std::uint8_t status = message[0];
    const std::size_t channel = status & 0x0F;
    const auto kind = static_cast<ChannelStatus>(status & 0xF0);
    if (kind == ChannelStatus::programChange && message.size() >= 2)
        programChange(channel, lowSevenBits(message[1]));
    else if (kind == ChannelStatus::controlChange && message.size() >= 3)
        controlChange(channel, lowSevenBits(message[1]), lowSevenBits(message[2]));
    else if (status == MIDIFileFormat::sysExStatus || status == MIDIFileFormat::sysExEnd)
        sysEx(madeWhole(message));
}

void ToneModuleModel::programChange(std::size_t channel, int program)
{
    if (channel >= data.channels.size()) return;
    ChannelToneParameters& parameters = data.channels[channel];
    parameters.programChange = static_cast<std::uint8_t>(program);
    applyBank(channel);
    const bool playsPreset =
        parameters.drumTrackSetting == ToneDrumTrackSetting::melody && parameters.bankKind == ToneBankKind::preset;
    if (playsPreset && presetVoice) presetVoice(parameters.programChange, parameters);
}

void ToneModuleModel::applyBank(std::size_t channel)
{
    const ChannelParseState& state = states[channel];
    ChannelToneParameters& parameters = data.channels[channel];
    const bool isUser = state.bankSelectMSB == ChannelToneParameters::userBankSelectMSB && state.bankSelectLSB == 0;
    parameters.bankKind = isUser ? ToneBankKind::user : ToneBankKind::preset;
    if (parameters.drumTrackSetting == ToneDrumTrackSetting::drum) parameters.programChange = 0;
}

void ToneModuleModel::controlChange(std::size_t channel, int controller, int value)
{
    if (channel >= data.channels.size()) return;
    ChannelParseState& state = states[channel];
    switch (controller) {
    case Controller::bankSelectMSB:
        state.bankSelectMSB = value;
        return applyBank(channel);
    case Controller::bankSelectLSB:
        state.bankSelectLSB = value;
        return applyBank(channel);
    case Controller::dataEntryMSB:
        return dataEntryMSB(channel, value);
    case Controller::dataEntryLSB:
        return dataEntryLSB(channel, value);
    case Controller::nrpnMSB:
    case Controller::nrpnLSB:
    case Controller::rpnMSB:
    case Controller::rpnLSB:
        return selectParameter(state, controller, value);
    default:
        return setController(channel, controller, value);
    }
}

void ToneModuleModel::setController(std::size_t channel, int controller, int value)
{
    const ToneParameter* parameter = findToneParameter(carrier(Kind::controller, 0, controller));
    if (parameter != nullptr) setWireValue(*parameter, data.channels[channel], value);
}

void ToneModuleModel::selectParameter(ChannelParseState& state, int controller, int value)
{
    state.isNRPNSelected = controller == Controller::nrpnMSB || controller == Controller::nrpnLSB;
    state.isRPNSelected = !state.isNRPNSelected;
    if (controller == Controller::nrpnMSB) state.nrpnMSB = value;
    if (controller == Controller::nrpnLSB) state.nrpnLSB = value;
    if (controller == Controller::rpnMSB) state.rpnMSB = value;
    if (controller == Controller::rpnLSB) state.rpnLSB = value;
}

void ToneModuleModel::dataEntryMSB(std::size_t channel, int value)
{
    ChannelParseState& state = states[channel];
    state.dataMSB = value;
    if (state.isNRPNSelected) return setNRPN(channel, value);
    if (!state.isRPNSelected || state.rpnMSB < 0 || state.rpnLSB < 0) return;
    const ToneParameter* parameter = findToneParameter(carrier(Kind::rpn, state.rpnMSB, state.rpnLSB));
    if (parameter != nullptr) setWireValue(*parameter, data.channels[channel], value);
}

/// A parameter of fourteen bits takes effect here; the others take their high data byte a second time.
void ToneModuleModel::dataEntryLSB(std::size_t channel, int value)
{
    const ChannelParseState& state = states[channel];
    if (!state.isRPNSelected || state.rpnMSB < 0 || state.rpnLSB < 0) return;
    ChannelToneParameters& parameters = data.channels[channel];
    if (const ToneParameter* coarse = findToneParameter(carrier(Kind::rpn, state.rpnMSB, state.rpnLSB)))
        setWireValue(*coarse, parameters, state.dataMSB);
    if (const ToneParameter* fine = findToneParameter(carrier(Kind::rpnFourteenBit, state.rpnMSB, state.rpnLSB)))
        setWireValue(*fine, parameters, value | state.dataMSB << 7);
}

/// Master values are taken from whichever channel carries them.
void ToneModuleModel::setNRPN(std::size_t channel, int value)
{
    const ChannelParseState& state = states[channel];
    if (state.nrpnMSB < 0 || state.nrpnLSB < 0) return;
    const ToneParameter* parameter = findToneParameter(carrier(Kind::nrpn, state.nrpnMSB, state.nrpnLSB));
    if (parameter == nullptr) return;
    if (isMasterParameter(*parameter)) return setWireValue(*parameter, data.master, value);
    setWireValue(*parameter, data.channels[channel], value);
    if (parameter->id == ToneParameterID::drumTrackSetting) applyBank(channel);
}

void ToneModuleModel::sysEx(std::vector<std::uint8_t> message)
{
    if (message.size() >= masterVolumeMessageSize && startsWith(message, masterVolumeHead)) {
        const ToneParameter& volume = toneParameter(ToneParameterID::masterVolume);
        return setWireValue(volume, data.master, message[masterVolumeHead.size()]);
    }
    if (message.size() <= commandOffset || !startsWith(message, moduleFrameHead)) return;
    switch (static_cast<Command>(message[commandOffset])) {
    case Command::tonePatch:
        return patchParameters(message);
    case Command::tonePatchName:
        return patchName(message);
    case Command::waveformData:
        return waveformData(message);
    default:
        return;
    }
}

void ToneModuleModel::patchParameters(std::span<const std::uint8_t> message)
{
    namespace Layout = PatchMessageLayout;
    if (message.size() < Layout::parameterMessageSize) return;
    const auto patchClass = static_cast<PatchClass>(lowSevenBits(message[Layout::patchClass]));
    const bool isDrum = patchClass == PatchClass::drum;
    if (!isDrum && patchClass != PatchClass::melody) return;
    ImportedUserPatch* patch = isDrum ? patchAt(data.userDrums, message[Layout::drumKey])
                                      : patchAt(data.userMelodies, message[Layout::program]);
    if (patch == nullptr) return;
    for (const ToneParameter& parameter : channelToneParameterRows())
        if (parameter.patchOffset != 0)
            setWireValue(parameter, patch->parameters, lowSevenBits(message[parameter.patchOffset]));
    patch->noteNumber = isDrum ? lowSevenBits(message[Layout::drumPitch]) : 0;
}

void ToneModuleModel::patchName(std::span<const std::uint8_t> message)
{
    namespace Layout = PatchMessageLayout;
    if (message.size() < Layout::nameMessageSize) return;
    std::string name;
    for (const std::uint8_t byte : message.subspan(Layout::name, Layout::nameLength))
        name += static_cast<char>(lowSevenBits(byte));
    name.erase(name.find_last_not_of(' ') + 1);

    const auto patchClass = static_cast<PatchClass>(lowSevenBits(message[Layout::patchClass]));
    if (patchClass == PatchClass::drum) {
        data.userDrumName = name;
    } else if (patchClass == PatchClass::melody) {
        ImportedUserPatch* patch = patchAt(data.userMelodies, message[Layout::program]);
        if (patch != nullptr) patch->name = name;
    }
}

void ToneModuleModel::waveformData(std::span<const std::uint8_t> message)
{
    const auto decoded = UserWaveformBuilder::decodedSectionSamples(message);
    if (!decoded || static_cast<std::size_t>(decoded->slot) >= data.userWaveforms.size()) return;
    UserWaveform& waveform = data.userWaveforms[static_cast<std::size_t>(decoded->slot)];
    if (waveform.size() != UserWaveformBuilder::sampleCount) return;
    const std::size_t first = static_cast<std::size_t>(decoded->section) * UserWaveformBuilder::samplesPerSection;
    if (first + decoded->samples.size() > waveform.size()) return;
    std::ranges::copy(decoded->samples, waveform.begin() + static_cast<std::ptrdiff_t>(first));
}

} // namespace tonavelle
