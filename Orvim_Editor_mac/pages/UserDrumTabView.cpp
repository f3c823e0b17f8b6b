#include "pages/UserDrumTabView.h"

#include "controls/AdaptiveColumns.h"
#include "controls/NumberSlider.h"
#include "controls/PreviewPatchListView.h"
#include "controls/ValidatedTextField.h"
#include "core/tone/ToneNames.h"
#include "pages/ToneEditorActions.h"

#include <QGroupBox>

#include <utility>

namespace orvim {

namespace {

constexpr int listWidth = 210;

ValidatedTextField* addNameField(QGroupBox& group, const QString& caption, ValidatedTextField::Filter filter)
{
    auto* const field = new ValidatedTextField(std::move(filter));
    field->setObjectName(caption);
    field->setAccessibleName(caption);
    addControlRow(group, caption, field);
    return field;
}

} // namespace

UserDrumTabView::UserDrumTabView(ToneEditorActions& actions, QWidget* parent)
    : ToneEditorTabView(actions, ToneEditorPart::userDrum | ToneEditorPart::names | ToneEditorPart::userWave, parent),
      m_list(new PreviewPatchListView)
{
    const QString noteCaption = QStringLiteral("Notenum");
    m_noteNumber = new NumberSlider(noteCaption, 0, highestNoteNumber);
    m_voice.addBesideWaveNumber(noteCaption, m_noteNumber);
    auto* const columns = new AdaptiveColumns;
    columns->addColumn(makeToneColumn({}, {makeNameGroup(), m_voice.oscillators()}));
    columns->addColumn(makeToneColumn({}, {m_voice.envelope(), m_voice.sweep(), m_voice.loudness()}));
    setContent(tr("ドラムノート番号"), m_list, makeToneColumn(tr("ボイス編集"), {columns}));
    makeList();
    connectControls();
    showState();
}

void UserDrumTabView::makeList()
{
    m_list->setFixedWidth(listWidth);
    connect(m_list, &PreviewPatchListView::rowSelected, this,
            [this](int row) { actions().patches.selectUserDrum(row); });
    connect(m_list, &PreviewPatchListView::rowPressed, this,
            [this](int row) { actions().previews.pressUserDrum(row); });
    connect(m_list, &PreviewPatchListView::rowReleased, this, [this] { actions().previews.releaseUserDrum(); });
}

QGroupBox* UserDrumTabView::makeNameGroup()
{
    QGroupBox* const group = makeToneGroup({});
    m_setName = addNameField(*group, tr("ドラムセット名"), limitedName);
    m_noteName = addNameField(*group, QStringLiteral("Name"), [](const QString& text) { return text; });
    return group;
}

void UserDrumTabView::connectControls()
{
    connect(m_setName, &ValidatedTextField::textCommitted, this,
            [this](const QString& name) { actions().patches.setDrumSetName(name); });
    connect(m_noteName, &ValidatedTextField::textCommitted, this,
            [this](const QString& name) { actions().patches.setUserDrumName(name); });
    connect(m_noteNumber, &NumberSlider::valueChanged, this,
            [this](double value) { actions().patches.setUserDrumNoteNumber(value); });
    connect(&m_voice, &ToneVoiceControls::chosen, this,
            [this](tonavelle::ToneParameterID id, double value) { actions().patches.setUserDrum(id, value); });
}

void UserDrumTabView::showState()
{
    QStringList rows;
    for (const tonavelle::UserTonePatch& patch : state().instrument.userDrums)
        rows << fromCore(tonavelle::drumNoteDisplayName(patch.id, patch.name));
    m_list->setItems(rows);
    m_list->setSelectedIndex(state().selectedUserDrum);

    const tonavelle::UserTonePatch& patch = state().userDrum();
    m_setName->setBoundText(fromCore(state().instrument.drumSetName));
    m_noteName->setBoundText(fromCore(patch.name));
    if (std::exchange(m_shownPatch, patch.id) != patch.id) m_noteName->forgetEdits();
    m_noteNumber->setValue(patch.noteNumber);
    m_voice.setSound(patch.parameters, state().instrument.userWaveforms);
}

} // namespace orvim
