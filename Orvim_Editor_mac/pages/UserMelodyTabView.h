#pragma once

#include "pages/ToneEditorTabView.h"
#include "pages/ToneVoiceControls.h"

class QComboBox;

namespace orvim {

class ValidatedTextField;

/// The tab "ユーザー楽器": 128 melody patches.
class UserMelodyTabView : public ToneEditorTabView
{
    Q_OBJECT

public:
    explicit UserMelodyTabView(ToneEditorActions& actions, QWidget* parent = nullptr);

protected:
    void showState() override;

private:
    void makeList();
    QGroupBox* makePatchGroup();
    void connectControls();

    PreviewPatchListView* m_list = nullptr;
    QComboBox* m_presets = nullptr;
    ValidatedTextField* m_name = nullptr;
    int m_shownPatch = 0; ///< the id of the patch in the controls
    ToneVoiceControls m_voice;
};

} // namespace orvim
