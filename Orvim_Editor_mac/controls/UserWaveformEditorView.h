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
    /// The program's side, silent. A stroke that is being drawn goes on over the samples on which it began; others take
    /// its ground away, and it is given up.
    void setSamples(const tonavelle::UserWaveform& samples);
    /// Ends a stroke that is being drawn, as its release does.
    void endEditing();

Q_SIGNALS:
    /// An edit has ended.
    void edited(const tonavelle::UserWaveform& samples);
    /// The keyboard asks for the samples before the last edit.
    void undoRequested();

private:
    UserWaveformNSView* m_surface = nullptr;
    tonavelle::UserWaveform m_samples; ///< without the stroke that is being drawn
};

} // namespace orvim
