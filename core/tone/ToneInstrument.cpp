#include "core/tone/ToneInstrument.h"

#include "core/tone/ToneDefaults.h"
#include "core/tone/UserWaveformBuilder.h"

#include <cstddef>
#include <utility>

namespace tonavelle {

namespace {

std::vector<ImportedUserPatch> importedPatches(std::vector<UserTonePatch> patches)
{
    std::vector<ImportedUserPatch> result;
    for (UserTonePatch& patch : patches)
        result.push_back({std::move(patch.name), patch.parameters, patch.noteNumber});
    return result;
}

std::vector<UserTonePatch> editedPatches(std::vector<ImportedUserPatch> patches)
{
    std::vector<UserTonePatch> result;
    for (ImportedUserPatch& patch : patches)
        result.push_back({.id = static_cast<int>(result.size()),
                          .name = std::move(patch.name),
                          .parameters = patch.parameters,
                          .noteNumber = patch.noteNumber});
    return result;
}

std::vector<UserWaveform> defaultUserWaveforms()
{
    return std::vector<UserWaveform>(UserWaveformBuilder::slotCount, UserWaveformBuilder::sine());
}

} // namespace

ToneInstrument factoryToneInstrument()
{
    return {.master = {},
            .channels = defaultChannels(),
            .userMelodies = defaultUserMelodies(),
            .userDrums = defaultUserDrums(),
            .drumSetName = std::string(defaultDrumSetName),
            .userWaveforms = defaultUserWaveforms()};
}

ImportedToneData factoryToneData()
{
    ToneInstrument factory = factoryToneInstrument();
    return {.master = factory.master,
            .channels = std::move(factory.channels),
            .userMelodies = importedPatches(std::move(factory.userMelodies)),
            .userDrums = importedPatches(std::move(factory.userDrums)),
            .userDrumName = std::move(factory.drumSetName),
            .userWaveforms = std::move(factory.userWaveforms)};
}

ToneInstrument toneInstrument(ImportedToneData imported)
{
    ToneInstrument instrument = factoryToneInstrument();
    instrument.master = imported.master;
    for (std::size_t i = 0; i < instrument.channels.size() && i < imported.channels.size(); ++i)
        instrument.channels[i] = imported.channels[i];
    instrument.userMelodies = editedPatches(std::move(imported.userMelodies));
    instrument.userDrums = editedPatches(std::move(imported.userDrums));
    if (!imported.userDrumName.empty()) instrument.drumSetName = limitedPatchName(imported.userDrumName);
    for (std::size_t i = 0; i < instrument.userWaveforms.size() && i < imported.userWaveforms.size(); ++i)
        if (imported.userWaveforms[i].size() == UserWaveformBuilder::sampleCount)
            instrument.userWaveforms[i] = std::move(imported.userWaveforms[i]);
    return instrument;
}

} // namespace tonavelle
