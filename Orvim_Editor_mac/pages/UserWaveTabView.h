#pragma once

#include "pages/ToneEditorTabView.h"

class QGroupBox;
class QLabel;
class QPushButton;
class QToolButton;

namespace orvim {

class FormulaHelpView;
class UserWaveformEditorView;
class ValidatedTextField;

/// The tab "ユーザー波形": four waveforms, drawn by hand, made by formula or read from WAV files.
class UserWaveTabView : public ToneEditorTabView
{
    Q_OBJECT

public:
    explicit UserWaveTabView(ToneEditorActions& actions, QWidget* parent = nullptr);

protected:
    void showState() override;

private:
    void makeList();
    QGroupBox* makeEditorGroup();
    QLayout* makeSendRow();
    QLayout* makeShapeButtons();
    QLayout* makeOperationButtons();
    QGroupBox* makeSampleGroup();
    QGroupBox* makeFormulaGroup();
    void showHelp();

    PreviewPatchListView* m_list = nullptr;
    UserWaveformEditorView* m_editor = nullptr;
    int m_shownSlot = 0; ///< whose samples the editor shows
    QLabel* m_unsentMark = nullptr;
    QPushButton* m_send = nullptr;
    ValidatedTextField* m_formula = nullptr;
    QLabel* m_formulaStatus = nullptr;
    QToolButton* m_helpButton = nullptr;
    FormulaHelpView* m_help = nullptr;
};

} // namespace orvim
