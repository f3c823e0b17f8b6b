#pragma once

#include "core/tone/UserWaveform.h"
#include "pages/ToneParameterControls.h"

#include <span>
#include <vector>

namespace orvim {

class ADSRGraphView;
class NumberSlider;
class WaveformGraphView;

/// The controls of a sound with its two graphs, for a channel or for a user patch.
class ToneVoiceControls : public QObject
{
    Q_OBJECT

public:
    explicit ToneVoiceControls(QObject* parent = nullptr);

    QGroupBox* oscillators() const { return m_oscillators; }
    QGroupBox* envelope() const { return m_envelope; }
    QGroupBox* sweep() const { return m_sweep; }
    QGroupBox* loudness() const { return m_loudness; }
    /// Adds a row under the one that chooses the number of a wave; Tab goes to it from there.
    void addBesideWaveNumber(const QString& caption, NumberSlider* control);

    /// Shows a sound, silently; a user wave is drawn from its slot.
    void setSound(const tonavelle::ChannelToneParameters& sound,
                  std::span<const tonavelle::UserWaveform> userWaveforms);
    void setEnabled(bool enabled);

Q_SIGNALS:
    /// The user has chosen another value.
    void chosen(tonavelle::ToneParameterID id, double value);

private:
    ToneParameterControls m_controls;
    QGroupBox* m_oscillators = nullptr;
    QGroupBox* m_envelope = nullptr;
    QGroupBox* m_sweep = nullptr;
    QGroupBox* m_loudness = nullptr;
    WaveformGraphView* m_waveformGraph = nullptr;
    ADSRGraphView* m_envelopeGraph = nullptr;
};

} // namespace orvim
