#pragma once

#include "core/tone/ToneInstrument.h"
#include "core/tone/ToneUserMessages.h"

#include <QString>

#include <array>
#include <optional>
#include <set>
#include <vector>

namespace orvim {

/// The tabs of the tone editor, in their order.
enum class ToneEditorTab { master, channel, userMelody, userDrum, userWave };

inline constexpr std::array<ToneEditorTab, 5> allToneEditorTabs{
    ToneEditorTab::master,   ToneEditorTab::channel,  ToneEditorTab::userMelody,
    ToneEditorTab::userDrum, ToneEditorTab::userWave,
};

QString caption(ToneEditorTab tab);

/// The channel on which user melodies and waveforms are heard, and the one for drums.
inline constexpr int melodyPreviewChannel = 0;
inline constexpr int drumPreviewChannel = 9;

/// All that the tone editor holds: what the module is believed to know, and what the page shows of it. It lives as
/// long as the program and is kept in files only.
struct ToneEditorState {
    tonavelle::ToneInstrument instrument = tonavelle::factoryToneInstrument();
    std::vector<tonavelle::UserWaveform> sentUserWaveforms = instrument.userWaveforms; ///< what the module should hold

    int selectedChannel = 0;    ///< 0...15
    int selectedUserMelody = 0; ///< 0...127
    int selectedUserDrum = 0;   ///< 0...127
    int selectedUserWave = 0;   ///< 0...3
    ToneEditorTab selectedToneTab = ToneEditorTab::master;
    std::set<ToneEditorTab> loadedToneTabs{ToneEditorTab::master}; ///< whose content has been built

    std::optional<int> previewChannel;         ///< the channel whose test note sounds
    std::optional<int> userMelodyPreviewIndex; ///< the row that sounds
    std::optional<int> userDrumPreviewNote;    ///< the note that sounds
    std::optional<int> userWavePreviewSlot;    ///< the slot that sounds

    QString userWaveFormula;
    QString userWaveFormulaStatus;
    bool isUpdatingUserWaveFormulaProgrammatically = false; ///< the field follows, nobody types
    bool isUserWaveFormulaHelpPresented = false;

    tonavelle::DirtyOnlyFlags dirtyOnly; ///< of saving

    const tonavelle::ChannelToneParameters& channel() const;
    const tonavelle::UserTonePatch& userMelody() const;
    const tonavelle::UserTonePatch& userDrum() const;
    const tonavelle::UserWaveform& userWave() const;
    /// Whether the selected slot holds samples that were not sent.
    bool isUserWaveUnsent() const;
    /// The channel that the on-screen keyboard plays.
    int keyboardChannel() const;
};

} // namespace orvim
