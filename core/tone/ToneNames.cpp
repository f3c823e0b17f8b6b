#include "core/tone/ToneNames.h"

#include "core/text/UTF8.h"
#include "core/tone/FactoryMelodyTable.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <utility>

namespace tonavelle {
namespace {

constexpr std::size_t patchNameLength = 12;

std::string threeDigits(int number)
{
    char text[16];
    std::snprintf(text, sizeof text, "%03d", number);
    return text;
}

std::string userDrumSetDisplayName(std::string_view drumSetName)
{
    return "001:" + std::string(drumSetName);
}

} // namespace

std::string normalizedPatchName(std::string_view text)
{
    std::string name = limitedPatchName(text);
    name.resize(patchNameLength, ' ');
    return name;
}

std::string limitedPatchName(std::string_view text)
{
    std::string name;
    for (const char32_t scalar : UTF8Scalars(text)) {
        if (name.size() == patchNameLength) break;
        name += scalar >= 32 && scalar <= 126 ? static_cast<char>(scalar) : ' ';
    }
    return name;
}

std::string userMelodyDisplayName(const UserTonePatch& patch)
{
    return threeDigits(patch.id + 1) + ":" + patch.name;
}

std::string drumNoteDisplayName(int note, std::string_view name)
{
    if (name.empty()) return threeDigits(note);
    return threeDigits(note) + " (" + std::string(name) + ")";
}

std::string channelDisplayName(const ChannelToneParameters& channel, std::span<const UserTonePatch> userMelodies,
                               std::string_view drumSetName)
{
    const bool isUser = channel.bankKind == ToneBankKind::user;
    if (channel.drumTrackSetting == ToneDrumTrackSetting::drum)
        return isUser ? userDrumSetDisplayName(drumSetName) : "001:Standard Set";

    const std::vector<TonePreset>& presets = factoryMelodyPresets();
    const std::size_t count = isUser ? userMelodies.size() : presets.size();
    if (count == 0) return {};
    const std::size_t row = std::min<std::size_t>(channel.programChange, count - 1);
    return isUser ? userMelodyDisplayName(userMelodies[row]) : presets[row].name;
}

std::vector<TonePresetMenuItem> presetMenuItems(const ChannelToneParameters& channel,
                                                std::span<const UserTonePatch> userMelodies,
                                                std::string_view drumSetName)
{
    std::vector<TonePresetMenuItem> items;
    const auto add = [&](std::string name) { items.push_back({static_cast<int>(items.size()), std::move(name)}); };
    if (channel.drumTrackSetting == ToneDrumTrackSetting::drum)
        add(channelDisplayName(channel, userMelodies, drumSetName));
    else if (channel.bankKind == ToneBankKind::user)
        for (const UserTonePatch& patch : userMelodies)
            add(userMelodyDisplayName(patch));
    else
        for (const TonePreset& preset : factoryMelodyPresets())
            add(preset.name);
    return items;
}

} // namespace tonavelle
