#include "core/tone/ToneUserMessages.h"

#include "core/tone/ToneDefaults.h"
#include "core/tone/ToneEditorBuilder.h"
#include "core/tone/UserWaveformBuilder.h"

#include <cstddef>
#include <utility>

namespace tonavelle {

namespace {

void addUserMelodies(std::vector<LabelledMessage>& list, const ToneInstrument& instrument, bool dirtyOnly)
{
    for (const UserTonePatch& patch : instrument.userMelodies) {
        if (dirtyOnly && isDefaultUserMelody(patch)) continue;
        list.push_back(
            {userPatchParamLabel, ToneEditorBuilder::userPatchParam(false, patch.id, 0, patch.parameters, {})});
        list.push_back({userPatchNameLabel, ToneEditorBuilder::userPatchName(false, patch.id, patch.name)});
    }
}

void addUserDrums(std::vector<LabelledMessage>& list, const ToneInstrument& instrument, bool dirtyOnly)
{
    for (const UserTonePatch& patch : instrument.userDrums) {
        if (dirtyOnly && isDefaultUserDrum(patch)) continue;
        list.push_back({userPatchParamLabel,
                        ToneEditorBuilder::userPatchParam(true, 0, patch.noteNumber, patch.parameters, patch.id)});
    }
}

void addDrumSetName(std::vector<LabelledMessage>& list, const ToneInstrument& instrument, bool dirtyOnly)
{
    const bool isDefault = normalizedPatchName(instrument.drumSetName) == normalizedPatchName(defaultDrumSetName);
    if (dirtyOnly && isDefault) return;
    list.push_back({userPatchNameLabel, ToneEditorBuilder::userPatchName(true, 0, instrument.drumSetName)});
}

void addUserWaveforms(std::vector<LabelledMessage>& list, const ToneInstrument& instrument, bool dirtyOnly)
{
    const UserWaveform defaultWaveform = UserWaveformBuilder::sine();
    for (std::size_t slot = 0; slot < instrument.userWaveforms.size(); ++slot) {
        const UserWaveform& waveform = instrument.userWaveforms[slot];
        if (waveform.size() != UserWaveformBuilder::sampleCount) continue;
        if (dirtyOnly && waveform == defaultWaveform) continue;
        for (Message& message : UserWaveformBuilder::sysExMessages(static_cast<int>(slot), waveform))
            list.push_back({userWaveformLabel, std::move(message)});
    }
}

} // namespace

std::vector<LabelledMessage> userMessages(const ToneInstrument& instrument, const DirtyOnlyFlags& flags)
{
    std::vector<LabelledMessage> list;
    addUserMelodies(list, instrument, flags.writesDirtyUserMelodyOnly);
    addUserDrums(list, instrument, flags.writesDirtyUserDrumOnly);
    addDrumSetName(list, instrument, flags.writesDirtyUserDrumOnly);
    addUserWaveforms(list, instrument, flags.writesDirtyUserWaveOnly);
    return list;
}

} // namespace tonavelle
