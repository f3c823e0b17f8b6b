#pragma once

#include "pages/ToneEditorTabView.h"
#include "pages/ToneVoiceControls.h"

class QComboBox;
class QGroupBox;
class QLabel;

namespace orvim {

/// The tab "チャンネル設定": sixteen channels and the controls of the selected one.
class ChannelTabView : public ToneEditorTabView
{
    Q_OBJECT

public:
    explicit ChannelTabView(ToneEditorActions& actions, QWidget* parent = nullptr);

protected:
    void showState() override;

private:
    void makeList();
    QGroupBox* makeProgramGroup();
    void connectControls();
    void showPrograms();
    void showVoice();

    PreviewPatchListView* m_list = nullptr;
    ToneVoiceControls m_voice;
    ToneParameterControls m_settings;
    QComboBox* m_programs = nullptr;
    QLabel* m_note = nullptr;
};

} // namespace orvim
