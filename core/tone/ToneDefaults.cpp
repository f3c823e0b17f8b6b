#include "core/tone/ToneDefaults.h"

#include "core/tone/FactoryDrumTable.h"
#include "core/tone/FactoryMelodyTable.h"
#include "core/tone/ToneNames.h"

#include <cstddef>
#include <string>
#include <utility>

namespace tonavelle {
namespace {

constexpr std::size_t drumChannelIndex = 9;

UserTonePatch defaultUserMelody(int id)
{
    return {.id = id, .name = std::string(defaultUserMelodyName), .parameters = {}};
}

} // namespace

std::vector<ChannelToneParameters> defaultChannels()
{
    std::vector<ChannelToneParameters> channels(channelCount);
    channels[drumChannelIndex].drumTrackSetting = ToneDrumTrackSetting::drum;
    for (ChannelToneParameters& channel : channels)
        applyFactoryPreset(0, channel);
    return channels;
}

std::vector<UserTonePatch> defaultUserMelodies()
{
    std::vector<UserTonePatch> patches;
    for (int id = 0; id < userPatchCount; ++id)
        patches.push_back(defaultUserMelody(id));
    return patches;
}

std::vector<UserTonePatch> defaultUserDrums()
{
    std::vector<UserTonePatch> patches;
    for (int note = 0; note < userPatchCount; ++note) {
        UserDrumDefaultPatch drum = defaultUserDrumPatch(note);
        patches.push_back(
            {.id = note, .name = std::move(drum.name), .parameters = drum.parameters, .noteNumber = drum.noteNumber});
    }
    return patches;
}

bool isDefaultUserMelody(const UserTonePatch& patch)
{
    const UserTonePatch original = defaultUserMelody(patch.id);
    return normalizedPatchName(patch.name) == normalizedPatchName(original.name) &&
           patch.parameters == original.parameters;
}

bool isDefaultUserDrum(const UserTonePatch& patch)
{
    const UserDrumDefaultPatch original = defaultUserDrumPatch(patch.id);
    return patch.parameters == original.parameters && patch.noteNumber == original.noteNumber;
}

} // namespace tonavelle
