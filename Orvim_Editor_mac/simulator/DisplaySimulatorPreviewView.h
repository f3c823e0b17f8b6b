#pragma once

#include "controls/OncePerTurn.h"
#include "simulator/DisplayCanvas.h"

#include <QImage>
#include <QWidget>

namespace orvim {

class DisplaySimulatorState;

/// The live picture of the module's screen, stretched over the widget without smoothing, pixel by pixel of the device.
/// It is drawn at most once a turn of the event loop, repainted only when a pixel differs, and not drawn while hidden.
class DisplaySimulatorPreviewView : public QWidget
{
    Q_OBJECT

public:
    explicit DisplaySimulatorPreviewView(DisplaySimulatorState& state, QWidget* parent = nullptr);

    QSize sizeHint() const override;

    /// How often the screen has been drawn since the view was made.
    int drawCount() const { return m_drawCount; }

protected:
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void redraw();

    DisplaySimulatorState& m_state;
    OncePerTurn m_redrawing;
    DisplayCanvas m_canvas;
    QImage m_picture;
    int m_drawCount = 0;
};

} // namespace orvim
