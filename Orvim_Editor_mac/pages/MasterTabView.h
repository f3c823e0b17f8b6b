#pragma once

#include "pages/ToneEditorTabView.h"
#include "pages/ToneParameterControls.h"

namespace orvim {

/// The tab "マスター設定": the effects of the whole module.
class MasterTabView : public ToneEditorTabView
{
    Q_OBJECT

public:
    explicit MasterTabView(ToneEditorActions& actions, QWidget* parent = nullptr);

protected:
    void showState() override;

private:
    ToneParameterControls m_controls;
};

} // namespace orvim
