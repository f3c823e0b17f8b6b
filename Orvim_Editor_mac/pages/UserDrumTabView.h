#pragma once

#include "pages/ToneEditorTabView.h"
#include "pages/ToneVoiceControls.h"

namespace orvim {

class NumberSlider;
class ValidatedTextField;

/// The tab "ユーザードラム": the user drum set, a sound for each of the 128 notes.
class UserDrumTabView : public ToneEditorTabView
{
    Q_OBJECT

public:
    explicit UserDrumTabView(ToneEditorActions& actions, QWidget* parent = nullptr);

protected:
    void showState() override;

private:
    void makeList();
    QGroupBox* makeNameGroup();
    void connectControls();

    PreviewPatchListView* m_list = nullptr;
    ValidatedTextField* m_setName = nullptr;
    ValidatedTextField* m_noteName = nullptr;
    int m_shownPatch = 0; ///< the id of the patch in the controls
    NumberSlider* m_noteNumber = nullptr;
    ToneVoiceControls m_voice;
};

} // namespace orvim
