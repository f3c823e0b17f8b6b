#include "pages/MasterTabView.h"

#include "controls/AdaptiveColumns.h"
#include "pages/ToneEditorActions.h"

#include <QGroupBox>

namespace orvim {

using tonavelle::ToneControlGroup;

MasterTabView::MasterTabView(ToneEditorActions& actions, QWidget* parent)
    : ToneEditorTabView(actions, ToneEditorPart::master, parent)
{
    auto* const columns = new AdaptiveColumns;
    columns->addColumn(makeToneColumn(
        {}, {m_controls.addGroup(ToneControlGroup::reverb), m_controls.addGroup(ToneControlGroup::chorus)}));
    columns->addColumn(makeToneColumn(
        {}, {m_controls.addGroup(ToneControlGroup::delay), m_controls.addGroup(ToneControlGroup::masterVolume)}));
    setContent(columns);
    connect(&m_controls, &ToneParameterControls::chosen, this,
            [this](tonavelle::ToneParameterID id, double value) { this->actions().channels.setMaster(id, value); });
    showState();
}

void MasterTabView::showState()
{
    m_controls.setValues(state().instrument.master);
}

} // namespace orvim
