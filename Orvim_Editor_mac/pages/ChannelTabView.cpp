#include "pages/ChannelTabView.h"

#include "controls/AdaptiveColumns.h"
#include "controls/PageScrollArea.h"
#include "controls/PreviewPatchListView.h"
#include "core/tone/ToneDefaults.h"
#include "core/tone/ToneEditorBuilder.h"
#include "core/tone/ToneNames.h"
#include "pages/ToneEditorActions.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace orvim {

using tonavelle::ChannelToneParameters;
using tonavelle::ToneBankKind;
using tonavelle::ToneControlGroup;
using tonavelle::ToneDrumTrackSetting;
using tonavelle::ToneParameterID;

namespace {

constexpr int besideChannelName = 48; ///< the row's margins and the scroll bar
constexpr int shownPrograms = 20;

QStringList channelNames()
{
    QStringList names;
    for (int channel = 1; channel <= tonavelle::channelCount; ++channel)
        names << QStringLiteral("Ch %1").arg(channel, 2, 10, QLatin1Char('0'));
    return names;
}

/// Why the sound of such a channel cannot be edited here.
QString voiceNote(const ChannelToneParameters& channel)
{
    if (channel.drumTrackSetting == ToneDrumTrackSetting::melody) return ChannelTabView::tr("ユーザー楽器タブで編集可");
    return channel.bankKind == ToneBankKind::user ? ChannelTabView::tr("ユーザードラムタブで編集可")
                                                  : ChannelTabView::tr("Drum Track SetがMelodyの場合のみ編集可");
}

} // namespace

ChannelTabView::ChannelTabView(ToneEditorActions& actions, QWidget* parent)
    : ToneEditorTabView(actions, ToneEditorPart::channel | ToneEditorPart::names | ToneEditorPart::userWave, parent),
      m_list(new PreviewPatchListView), m_note(new QLabel)
{
    m_note->setObjectName(QStringLiteral("voiceNote"));
    m_note->setWordWrap(true);
    auto* const columns = new AdaptiveColumns;
    columns->addColumn(makeToneColumn(
        tr("ボイス編集"), {m_note, m_voice.oscillators(), m_voice.envelope(), m_voice.sweep(), m_voice.loudness()}));
    QList<QWidget*> settings{m_settings.addGroup(ToneControlGroup::bank), makeProgramGroup()};
    for (const ToneControlGroup group :
         {ToneControlGroup::effectSend, ToneControlGroup::distortion, ToneControlGroup::filter,
          ToneControlGroup::unison, ToneControlGroup::volumeAndPan, ToneControlGroup::pitch})
        settings << m_settings.addGroup(group);
    columns->addColumn(makeToneColumn(tr("チャンネル設定"), settings));
    setContent(tr("チャンネル"), m_list, columns);
    makeList();
    connectControls();
    showState();
}

void ChannelTabView::makeList()
{
    const QStringList names = channelNames();
    m_list->setFixedWidth(m_list->fontMetrics().horizontalAdvance(names.back()) + besideChannelName);
    m_list->setItems(names);
    connect(m_list, &PreviewPatchListView::rowSelected, this,
            [this](int row) { actions().channels.selectChannel(row); });
    connect(m_list, &PreviewPatchListView::rowPressed, this, [this](int row) { actions().previews.pressChannel(row); });
    connect(m_list, &PreviewPatchListView::rowReleased, this, [this] { actions().previews.releaseChannel(); });
}

QGroupBox* ChannelTabView::makeProgramGroup()
{
    const QString title = fromCore(tonavelle::caption(ToneControlGroup::program));
    QGroupBox* const group = makeToneGroup(title);
    m_programs = new QComboBox;
    scrollPageUnlessFocused(*m_programs);
    m_programs->setObjectName(title);
    m_programs->setAccessibleName(title);
    m_programs->setMaxVisibleItems(shownPrograms);
    group->layout()->addWidget(m_programs);
    return group;
}

void ChannelTabView::connectControls()
{
    const auto set = [this](ToneParameterID id, double value) { actions().channels.setChannel(id, value); };
    connect(&m_voice, &ToneVoiceControls::chosen, this, set);
    connect(&m_settings, &ToneParameterControls::chosen, this, set);
    // A menu of a single row can be chosen from as well.
    connect(m_programs, &QComboBox::activated, this, [this](int row) { actions().channels.chooseProgram(row); });
}

void ChannelTabView::showState()
{
    m_list->setSelectedIndex(state().selectedChannel);
    m_settings.setValues(state().channel());
    showPrograms();
    showVoice();
}

void ChannelTabView::showPrograms()
{
    const auto& instrument = state().instrument;
    QStringList names;
    for (const auto& item :
         tonavelle::presetMenuItems(state().channel(), instrument.userMelodies, instrument.drumSetName))
        names << fromCore(item.name);
    const QSignalBlocker silent(m_programs);
    QStringList shown;
    for (int row = 0; row < m_programs->count(); ++row)
        shown << m_programs->itemText(row);
    if (names != shown) {
        m_programs->clear();
        m_programs->addItems(names);
    }
    m_programs->setCurrentIndex(std::min<int>(state().channel().programChange, m_programs->count() - 1));
}

void ChannelTabView::showVoice()
{
    const ChannelToneParameters& channel = state().channel();
    const bool isEditable = tonavelle::ToneEditorBuilder::sendsVoiceEdit(channel);
    m_voice.setEnabled(isEditable);
    m_voice.setSound(channel, state().instrument.userWaveforms);
    m_note->setVisible(!isEditable);
    m_note->setText(isEditable ? QString() : voiceNote(channel));
}

} // namespace orvim
