#pragma once

#include "core/tone/UserWaveform.h"

#include <QWidget>

namespace orvim {

class UserWaveformNSView;

/// The waveform editor: the drawing surface bound to a waveform.
class UserWaveformEditorView : public QWidget
{
    Q_OBJECT

public:
    explicit UserWaveformEditorView(QWidget* parent = nullptr);

    const tonavelle::UserWaveform& samples() const;
    /// The program's side, silent. Ignored while a stroke is being drawn.
    void setSamples(const tonavelle::UserWaveform& samples);

Q_SIGNALS:
    /// An edit has ended.
    void edited(const tonavelle::UserWaveform& samples);

private:
    UserWaveformNSView* m_surface = nullptr;
};

} // namespace orvim
