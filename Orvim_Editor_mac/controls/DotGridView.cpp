#include "controls/DotGridView.h"

#include "controls/DotGridGeometry.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace orvim {

namespace {

using namespace DotGridGeometry;

constexpr int gridSize = static_cast<int>(tonavelle::dotGridSize);
// The colours of the module's own screen, in a light and in a dark theme alike.
const QColor groundColor(0x10, 0x16, 0x22);
const QColor unlitColor(0x21, 0x3A, 0x60);
const QColor litColor(0x8E, 0xBC, 0xFC);
const QColor cursorColor(0xFF, 0xD7, 0x00);

QRect cellRect(int x, int y)
{
    return {margin + x * pitchX, margin + y * pitchY, cellWidth, cellHeight};
}

} // namespace

DotGridView::DotGridView(QWidget* parent) : QWidget(parent)
{
    setFixedSize(sizeHint());
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("ドット絵"));
    setToolTip(tr("クリックまたはドラッグで点を反転します。矢印キーで移動、スペースキーで反転します。"));
    describe();
}

void DotGridView::setDots(const tonavelle::DotGrid& dots)
{
    if (m_dots == dots) return;
    m_dots = dots;
    describe();
    update();
}

QSize DotGridView::sizeHint() const
{
    return {2 * margin + gridSize * pitchX - gap, 2 * margin + gridSize * pitchY - gap};
}

void DotGridView::describe()
{
    const bool isLit = m_dots[static_cast<std::size_t>(m_cursorY)][static_cast<std::size_t>(m_cursorX)];
    setAccessibleDescription(
        tr("%1行 %2列 %3").arg(m_cursorY + 1).arg(m_cursorX + 1).arg(isLit ? tr("点灯") : tr("消灯")));
}

void DotGridView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), groundColor);
    for (int y = 0; y < gridSize; ++y) {
        for (int x = 0; x < gridSize; ++x) {
            const bool isLit = m_dots[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)];
            painter.fillRect(cellRect(x, y), isLit ? litColor : unlitColor);
        }
    }
    if (!hasFocus() || !m_showsCursor) return;
    painter.setPen(cursorColor);
    painter.drawRect(cellRect(m_cursorX, m_cursorY).adjusted(-1, -1, 0, 0));
}

void DotGridView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) return QWidget::mousePressEvent(event);
    m_showsCursor = false;
    m_isDragging = true;
    update();
    Q_EMIT dragged(event->position());
}

void DotGridView::mouseMoveEvent(QMouseEvent* event)
{
    if (m_isDragging) Q_EMIT dragged(event->position());
}

void DotGridView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) endDrag();
}

void DotGridView::hideEvent(QHideEvent* event)
{
    // The page can change under the pressed button, and the release then goes elsewhere.
    endDrag();
    QWidget::hideEvent(event);
}

void DotGridView::endDrag()
{
    if (!m_isDragging) return;
    m_isDragging = false;
    Q_EMIT released();
}

void DotGridView::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Left:
        return moveCursorBy(-1, 0);
    case Qt::Key_Right:
        return moveCursorBy(1, 0);
    case Qt::Key_Up:
        return moveCursorBy(0, -1);
    case Qt::Key_Down:
        return moveCursorBy(0, 1);
    case Qt::Key_Home:
        return moveCursorBy(-gridSize, 0);
    case Qt::Key_End:
        return moveCursorBy(gridSize, 0);
    case Qt::Key_PageUp:
        return moveCursorBy(0, -gridSize);
    case Qt::Key_PageDown:
        return moveCursorBy(0, gridSize);
    case Qt::Key_Space:
        return Q_EMIT cellPressed(m_cursorX, m_cursorY);
    default:
        QWidget::keyPressEvent(event);
    }
}

void DotGridView::focusInEvent(QFocusEvent* event)
{
    m_showsCursor = event->reason() != Qt::MouseFocusReason;
    QWidget::focusInEvent(event);
}

void DotGridView::moveCursorBy(int dx, int dy)
{
    m_showsCursor = true;
    m_cursorX = std::clamp(m_cursorX + dx, 0, gridSize - 1);
    m_cursorY = std::clamp(m_cursorY + dy, 0, gridSize - 1);
    describe();
    update();
}

} // namespace orvim
