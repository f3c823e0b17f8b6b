#pragma once

#include "core/protocol/DotGrid.h"

#include <QWidget>

namespace orvim {

/// The 16 by 16 dot grid as a drawing surface. It tells where the pointer goes and paints what it is given; what a
/// stroke means is its owner's. With the keyboard, arrows move a cell cursor and the space bar presses its cell.
class DotGridView : public QWidget
{
    Q_OBJECT

public:
    explicit DotGridView(QWidget* parent = nullptr);

    void setDots(const tonavelle::DotGrid& dots);
    QSize sizeHint() const override;

Q_SIGNALS:
    /// A press, or a move with the button held, at a point of the grid's own coordinates.
    void dragged(QPointF position);
    void released();
    void cellPressed(int x, int y);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void moveCursorBy(int dx, int dy);
    void endDrag();
    void describe();

    tonavelle::DotGrid m_dots{};
    int m_cursorX = 0;
    int m_cursorY = 0;
    bool m_isDragging = false;
    bool m_showsCursor = false; ///< only who came by the keyboard needs it
};

} // namespace orvim
