#include "controls/UserWaveformEditorView.h"

#include "controls/UserWaveformNSView.h"

#include <QVBoxLayout>

namespace orvim {

UserWaveformEditorView::UserWaveformEditorView(QWidget* parent)
    : QWidget(parent), m_surface(new UserWaveformNSView(this)), m_samples(m_surface->currentSamples())
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_surface);
    m_surface->setObjectName(QStringLiteral("waveform"));
    m_surface->setOnEditingEnded([this](const tonavelle::UserWaveform& samples) {
        m_samples = samples;
        Q_EMIT edited(samples);
    });
    m_surface->setOnUndo([this] { Q_EMIT undoRequested(); });
    setFocusProxy(m_surface);
}

const tonavelle::UserWaveform& UserWaveformEditorView::samples() const
{
    return m_surface->currentSamples();
}

void UserWaveformEditorView::setSamples(const tonavelle::UserWaveform& samples)
{
    if (m_surface->isEditing() && samples == m_samples) return;
    m_samples = samples;
    m_surface->setCurrentSamples(samples);
}

void UserWaveformEditorView::endEditing()
{
    m_surface->endEditing();
}

} // namespace orvim
