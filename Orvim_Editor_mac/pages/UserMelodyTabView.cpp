#include "pages/UserMelodyTabView.h"

#include "controls/AdaptiveColumns.h"
#include "controls/PageScrollArea.h"
#include "controls/PreviewPatchListView.h"
#include "controls/ValidatedTextField.h"
#include "core/tone/FactoryMelodyTable.h"
#include "core/tone/ToneNames.h"
#include "pages/ToneEditorActions.h"

#include <QComboBox>
#include <QGroupBox>
#include <QSignalBlocker>

#include <utility>

namespace orvim {

namespace {

constexpr int listWidth = 190;
constexpr int shownPresets = 20;

} // namespace

UserMelodyTabView::UserMelodyTabView(ToneEditorActions& actions, QWidget* parent)
    : ToneEditorTabView(actions, ToneEditorPart::userMelody | ToneEditorPart::names | ToneEditorPart::userWave, parent),
      m_list(new PreviewPatchListView)
{
    auto* const columns = new AdaptiveColumns;
    columns->addColumn(makeToneColumn({}, {makePatchGroup(), m_voice.oscillators()}));
    columns->addColumn(makeToneColumn({}, {m_voice.envelope(), m_voice.sweep(), m_voice.loudness()}));
    setContent(tr("音色番号"), m_list, makeToneColumn(tr("ボイス編集"), {columns}));
    makeList();
    connectControls();
    showState();
}

void UserMelodyTabView::makeList()
{
    m_list->setFixedWidth(listWidth);
    connect(m_list, &PreviewPatchListView::rowSelected, this,
            [this](int row) { actions().patches.selectUserMelody(row); });
    connect(m_list, &PreviewPatchListView::rowReached, this, [this] { actions().previews.followSelection(); });
    connect(m_list, &PreviewPatchListView::rowPressed, this,
            [this](int row) { actions().previews.pressUserMelody(row); });
    connect(m_list, &PreviewPatchListView::rowReleased, this, [this] { actions().previews.releaseUserMelody(); });
}

QGroupBox* UserMelodyTabView::makePatchGroup()
{
    QGroupBox* const group = makeToneGroup({});
    const QString presetCaption = tr("プリセット");
    m_presets = new QComboBox;
    scrollPageUnlessFocused(*m_presets);
    m_presets->setObjectName(presetCaption);
    m_presets->setAccessibleName(presetCaption);
    m_presets->setMaxVisibleItems(shownPresets);
    for (const tonavelle::TonePreset& preset : tonavelle::factoryMelodyPresets())
        m_presets->addItem(fromCore(preset.name));
    addControlRow(*group, presetCaption, m_presets);

    const QString nameCaption = tr("楽器名");
    m_name = new ValidatedTextField(limitedName);
    m_name->setObjectName(nameCaption);
    m_name->setAccessibleName(nameCaption);
    addControlRow(*group, nameCaption, m_name);
    return group;
}

void UserMelodyTabView::connectControls()
{
    connect(m_presets, &QComboBox::activated, this, [this](int row) { actions().patches.choosePreset(row); });
    connect(m_name, &ValidatedTextField::textCommitted, this,
            [this](const QString& name) { actions().patches.setUserMelodyName(name); });
    connect(&m_voice, &ToneVoiceControls::chosen, this,
            [this](tonavelle::ToneParameterID id, double value) { actions().patches.setUserMelody(id, value); });
}

void UserMelodyTabView::showState()
{
    QStringList rows;
    for (const tonavelle::UserTonePatch& patch : state().instrument.userMelodies)
        rows << fromCore(tonavelle::userMelodyDisplayName(patch));
    m_list->setItems(rows);
    m_list->setSelectedIndex(state().selectedUserMelody);

    const tonavelle::UserTonePatch& patch = state().userMelody();
    const QSignalBlocker silent(m_presets);
    m_presets->setCurrentIndex(patch.presetProgram.value_or(-1));
    m_name->setBoundText(fromCore(patch.name));
    if (std::exchange(m_shownPatch, patch.id) != patch.id) m_name->forgetEdits();
    m_voice.setSound(patch.parameters, state().instrument.userWaveforms);
}

} // namespace orvim
