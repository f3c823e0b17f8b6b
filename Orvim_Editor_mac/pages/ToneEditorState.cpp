#include "pages/ToneEditorState.h"

namespace orvim {

namespace {

constexpr std::array<const char*, allToneEditorTabs.size()> tabCaptions{
    "マスター設定", "チャンネル設定", "ユーザー楽器", "ユーザードラム", "ユーザー波形",
};

} // namespace

QString caption(ToneEditorTab tab)
{
    return QString::fromUtf8(tabCaptions[static_cast<std::size_t>(tab)]);
}

const tonavelle::ChannelToneParameters& ToneEditorState::channel() const
{
    return instrument.channels[static_cast<std::size_t>(selectedChannel)];
}

const tonavelle::UserTonePatch& ToneEditorState::userMelody() const
{
    return instrument.userMelodies[static_cast<std::size_t>(selectedUserMelody)];
}

const tonavelle::UserTonePatch& ToneEditorState::userDrum() const
{
    return instrument.userDrums[static_cast<std::size_t>(selectedUserDrum)];
}

const tonavelle::UserWaveform& ToneEditorState::userWave() const
{
    return instrument.userWaveforms[static_cast<std::size_t>(selectedUserWave)];
}

bool ToneEditorState::isUserWaveUnsent() const
{
    return userWave() != sentUserWaveforms[static_cast<std::size_t>(selectedUserWave)];
}

int ToneEditorState::keyboardChannel() const
{
    switch (selectedToneTab) {
    case ToneEditorTab::master:
    case ToneEditorTab::channel:
        return selectedChannel;
    case ToneEditorTab::userMelody:
    case ToneEditorTab::userWave:
        return melodyPreviewChannel;
    case ToneEditorTab::userDrum:
        return drumPreviewChannel;
    }
    return melodyPreviewChannel;
}

} // namespace orvim
