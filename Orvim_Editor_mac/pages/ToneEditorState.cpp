#include "pages/ToneEditorState.h"

namespace orvim {

namespace {

constexpr std::array<const char*, allToneEditorTabs.size()> tabCaptions{
    "マスター設定", "チャンネル設定", "ユーザー楽器", "ユーザードラム", "ユーザー波形",
};

template <typename Record>
const Record& selected(const std::vector<Record>& list, int row)
{
    Q_ASSERT(row >= 0 && static_cast<std::size_t>(row) < list.size());
    return list[static_cast<std::size_t>(row)];
}

} // namespace

QString caption(ToneEditorTab tab)
{
    return QString::fromUtf8(tabCaptions[static_cast<std::size_t>(tab)]);
}

const tonavelle::ChannelToneParameters& ToneEditorState::channel() const
{
    return selected(instrument.channels, selectedChannel);
}

const tonavelle::UserTonePatch& ToneEditorState::userMelody() const
{
    return selected(instrument.userMelodies, selectedUserMelody);
}

const tonavelle::UserTonePatch& ToneEditorState::userDrum() const
{
    return selected(instrument.userDrums, selectedUserDrum);
}

const tonavelle::UserWaveform& ToneEditorState::userWave() const
{
    return selected(instrument.userWaveforms, selectedUserWave);
}

bool ToneEditorState::isUserWaveUnsent() const
{
    return userWave() != selected(sentUserWaveforms, selectedUserWave);
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
