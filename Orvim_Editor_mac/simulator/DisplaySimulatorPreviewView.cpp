#include "simulator/DisplaySimulatorPreviewView.h"

#include "DisplaySimulatorState.h"
#include "simulator/DisplayPicture.h"
#include "simulator/RenderDisplay.h"

#include <QPainter>

#include <algorithm>
#include <utility>

namespace orvim {

DisplaySimulatorPreviewView::DisplaySimulatorPreviewView(DisplaySimulatorState& state, QWidget* parent)
    : QWidget(parent), m_state(state), m_redrawing(this, [this] { redraw(); })
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAccessibleName(tr("画面シミュレータ"));
    setFixedSize(sizeHint());
    connect(&state, &DisplaySimulatorState::changed, &m_redrawing, &OncePerTurn::request);
}

QSize DisplaySimulatorPreviewView::sizeHint() const
{
    return {DisplayCanvas::width, DisplayCanvas::height};
}

void DisplaySimulatorPreviewView::redraw()
{
    if (!isVisible()) return;
    DisplayCanvas canvas;
    renderDisplay(m_state.fields(), canvas);
    ++m_drawCount;
    if (!m_picture.isNull() && std::ranges::equal(canvas.bytes(), m_canvas.bytes())) return;
    m_canvas = std::move(canvas);
    m_picture = pictureOf(m_canvas);
    update();
}

void DisplaySimulatorPreviewView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    redraw();
}

void DisplaySimulatorPreviewView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (m_picture.isNull()) {
        painter.fillRect(rect(), Qt::black);
    } else {
        painter.drawImage(rect(), m_picture);
    }
}

} // namespace orvim
