#pragma once

#include "core/tone/ToneRecords.h"
#include "pages/ToneEditorState.h"

#include <QObject>

#include <optional>
#include <string_view>

namespace orvim {

class DisplaySimulatorState;
class MIDIOutManager;
class OncePerTurn;
class ToneEditorModel;

/// What is heard while a row is held, and what channels 1 and 10 of the module play meanwhile.
///
/// Opening a user tab turns its channel into a preview of the selected row; going to another user tab or to the master
/// values leaves it so, and only the tab of the channels gives both channels their own sound back. A held row plays
/// one note, and whatever tab is opened ends it. The channels' own records are never touched by a preview.
///
/// What a held row sends goes ahead of all that still waits for the module, so that it is heard at once. While much
/// waits, its selection follows that once more, as an older one may be among it.
class ToneEditorPreviews : public QObject
{
    Q_OBJECT

public:
    ToneEditorPreviews(ToneEditorModel& model, MIDIOutManager& midiOutManager, DisplaySimulatorState& displaySimulator);

    /// Shows the tab at once; what it means for the module follows in the next turn of the event loop.
    void openTab(ToneEditorTab tab);
    void changeTab(ToneEditorTab tab);
    /// After everything was sent: the preview of the open tab, if it has one.
    void installOpenTab();

    /// A row of a user tab was chosen without being held: its channel plays it from now on, without a note. Asked for
    /// many times in a turn of the event loop, it goes out once.
    void followSelection();

    void pressChannel(int row);
    void releaseChannel();
    void pressUserMelody(int row);
    void releaseUserMelody();
    void pressUserDrum(int row);
    void releaseUserDrum();
    void pressUserWave(int row);
    void releaseUserWave();

private:
    void install(ToneEditorTab tab);
    void installUserMelody();
    void installUserDrum();
    void installUserWave();
    void selectUserMelody(int row);
    void selectUserWave(int row);
    void select(const tonavelle::Batch& messages, std::string_view label);
    void sendSelection();
    void restoreChannel(int channel);
    void endPreviewsExcept(ToneEditorTab tab);
    void playNote(std::optional<int> ToneEditorState::*sounding, int index, int channel, int note);
    void endNote(std::optional<int> ToneEditorState::*sounding, int channel, int note);
    void showPreview(int channel, const tonavelle::ChannelToneParameters& parameters);
    void showUserMelodyPreview(int program);
    void showUserDrumPreview();
    void showUserWavePreview();

    ToneEditorModel& m_model;
    MIDIOutManager& m_midiOutManager;
    DisplaySimulatorState& m_displaySimulator;
    OncePerTurn* m_selection = nullptr;
};

} // namespace orvim
