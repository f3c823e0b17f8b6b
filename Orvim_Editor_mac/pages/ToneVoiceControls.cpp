#include "pages/ToneVoiceControls.h"

#include "controls/ADSRGraphView.h"
#include "controls/NumberSlider.h"
#include "controls/WaveformGraphView.h"

#include <QGroupBox>
#include <QVBoxLayout>

#include <array>
#include <optional>

namespace orvim {

using tonavelle::ToneControlGroup;
using tonavelle::UserWaveform;

namespace {

std::optional<UserWaveform> userSamples(int waveType, std::span<const UserWaveform> userWaveforms)
{
    const int slot = waveType - tonavelle::UserWaveformBuilder::firstWaveType;
    if (slot < 0 || static_cast<std::size_t>(slot) >= userWaveforms.size()) return std::nullopt;
    return userWaveforms[static_cast<std::size_t>(slot)];
}

} // namespace

ToneVoiceControls::ToneVoiceControls(QObject* parent)
    : QObject(parent), m_oscillators(m_controls.addGroup(ToneControlGroup::oscillators)),
      m_envelope(m_controls.addGroup(ToneControlGroup::envelope)),
      m_sweep(m_controls.addGroup(ToneControlGroup::sweep)),
      m_loudness(m_controls.addGroup(ToneControlGroup::loudness)), m_waveformGraph(new WaveformGraphView),
      m_envelopeGraph(new ADSRGraphView)
{
    m_waveformGraph->setObjectName(QStringLiteral("waveformGraph"));
    m_envelopeGraph->setObjectName(QStringLiteral("envelopeGraph"));
    static_cast<QVBoxLayout*>(m_oscillators->layout())->addWidget(m_waveformGraph, 0, Qt::AlignHCenter);
    static_cast<QVBoxLayout*>(m_envelope->layout())->addWidget(m_envelopeGraph, 0, Qt::AlignHCenter);
    connect(&m_controls, &ToneParameterControls::chosen, this, &ToneVoiceControls::chosen);
}

void ToneVoiceControls::addBesideWaveNumber(const QString& caption, NumberSlider* control)
{
    // The row goes in front of those of the ring modulation, behind the type and the number.
    constexpr int place = 2;
    addControlRow(*m_oscillators, caption, control);
    auto* const rows = static_cast<QVBoxLayout*>(m_oscillators->layout());
    QLayoutItem* const row = rows->takeAt(rows->count() - 1);
    rows->insertItem(place, row);
    constexpr int controlInRow = 1; // behind its caption
    QWidget* const waveNumber = rows->itemAt(place - 1)->layout()->itemAt(controlInRow)->widget();
    control->setTabOrderAfter(*static_cast<NumberSlider*>(waveNumber));
}

void ToneVoiceControls::setSound(const tonavelle::ChannelToneParameters& sound,
                                 std::span<const UserWaveform> userWaveforms)
{
    m_controls.setValues(sound);
    m_waveformGraph->setWave({sound.waveType, sound.ringModMultiply, sound.ringModGain},
                             userSamples(sound.waveType, userWaveforms));
    m_envelopeGraph->setParameters(
        {sound.attack, sound.decay, sound.sustainLevel, sound.sustainRate, sound.release, sound.isReleaseActive});
}

void ToneVoiceControls::setEnabled(bool enabled)
{
    for (QGroupBox* const group : {m_oscillators, m_envelope, m_sweep, m_loudness})
        group->setEnabled(enabled);
}

} // namespace orvim
