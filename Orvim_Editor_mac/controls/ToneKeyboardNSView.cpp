#include "controls/ToneKeyboardNSView.h"

#include "controls/HeldKey.h"
#include "controls/ToneKeyboardGeometry.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <array>
#include <utility>

namespace orvim {

namespace Geometry = ToneKeyboardGeometry;

namespace {

constexpr int octave = 12;
// A piano is black and white on any theme.
constexpr QRgb whiteKey = qRgb(0xFA, 0xFA, 0xF7);
constexpr QRgb blackKey = qRgb(0x22, 0x22, 0x26);
constexpr QRgb edge = qRgb(0x8A, 0x8A, 0x90);
constexpr std::array<const char*, octave> noteNames{"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};

QString noteName(int note)
{
    return QStringLiteral("%1%2 (%3)")
        .arg(QString::fromUtf8(noteNames[static_cast<std::size_t>(note % octave)]))
        .arg(note / octave - 1)
        .arg(note);
}

/// How far an arrow key moves; 0 for any other key.
int cursorStep(int key)
{
    switch (key) {
    case Qt::Key_Left:
        return -1;
    case Qt::Key_Right:
        return 1;
    case Qt::Key_Down:
    case Qt::Key_PageDown:
        return -octave;
    case Qt::Key_Up:
    case Qt::Key_PageUp:
        return octave;
    case Qt::Key_Home:
        return -Geometry::lastNote;
    case Qt::Key_End:
        return Geometry::lastNote;
    default:
        return 0;
    }
}

} // namespace

ToneKeyboardNSView::ToneKeyboardNSView(OnNote onNoteOn, OnNote onNoteOff, QWidget* parent)
    : QWidget(parent), m_onNoteOn(std::move(onNoteOn)), m_onNoteOff(std::move(onNoteOff))
{
    const auto playCursor = [this] {
        if (!m_isDragging) play(m_cursorNote);
    };
    const auto endKey = [this] {
        if (!m_isDragging) endNote();
    };
    m_spaceBar = new HeldKey(this, playCursor, endKey);
    setFixedSize(sizeHint());
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true); // a move without a button tells of a release that went elsewhere
    setAccessibleName(tr("鍵盤"));
    moveCursorTo(m_cursorNote);
}

QSize ToneKeyboardNSView::sizeHint() const
{
    return {Geometry::keyboardWidth, Geometry::whiteHeight};
}

QColor ToneKeyboardNSView::keyColor(int note) const
{
    if (note == m_activeNote) return palette().color(QPalette::Highlight);
    return QColor(Geometry::blackKeyX(note) ? blackKey : whiteKey);
}

void ToneKeyboardNSView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    for (int key = 0; key < Geometry::whiteKeyCount; ++key) {
        const QRect rect(Geometry::whiteWidth * key, 0, Geometry::whiteWidth, Geometry::whiteHeight);
        painter.fillRect(rect, keyColor(Geometry::whiteNote(key)));
        painter.fillRect(QRect(rect.right(), 0, 1, rect.height()), QColor(edge));
    }
    painter.fillRect(QRect(0, 0, width(), 1), QColor(edge));
    painter.fillRect(QRect(0, height() - 1, width(), 1), QColor(edge));
    painter.fillRect(QRect(0, 0, 1, height()), QColor(edge));
    for (int note = 0; note <= Geometry::lastNote; ++note)
        if (const auto x = Geometry::blackKeyX(note))
            painter.fillRect(*x, 0, Geometry::blackWidth, Geometry::blackHeight, keyColor(note));
    if (!hasFocus() || !m_showsCursor) return;
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(cursorRect());
}

QRect ToneKeyboardNSView::cursorRect() const
{
    const auto black = Geometry::blackKeyX(m_cursorNote);
    const int left = black.value_or(Geometry::whiteWidth * Geometry::whiteKeyOf(m_cursorNote));
    return {left, 1, black ? Geometry::blackWidth : Geometry::whiteWidth - 1,
            (black ? Geometry::blackHeight : Geometry::whiteHeight) - 2};
}

void ToneKeyboardNSView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) return;
    setFocus(Qt::MouseFocusReason);
    m_showsCursor = false;
    m_isDragging = true;
    dragTo(event->position());
}

void ToneKeyboardNSView::mouseMoveEvent(QMouseEvent* event)
{
    // A drag that lost the focus is over, though the button may still be down.
    if (!m_isDragging) return;
    if (!(event->buttons() & Qt::LeftButton)) return endDrag();
    dragTo(event->position());
}

void ToneKeyboardNSView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && m_isDragging) endDrag();
}

void ToneKeyboardNSView::endDrag()
{
    m_isDragging = false;
    endNote();
}

void ToneKeyboardNSView::dragTo(QPointF point)
{
    const auto note = Geometry::noteAt(point.x(), point.y());
    if (!note) return endNote();
    play(*note);
}

void ToneKeyboardNSView::play(int note)
{
    if (note == m_activeNote) return;
    const auto formerNote = std::exchange(m_activeNote, note);
    const auto formerChannel = std::exchange(m_activeChannel, m_channel);
    moveCursorTo(note);
    update();
    if (formerNote && m_onNoteOff) m_onNoteOff(*formerChannel, *formerNote);
    if (m_onNoteOn) m_onNoteOn(m_channel, note);
}

void ToneKeyboardNSView::endNote()
{
    const auto note = std::exchange(m_activeNote, std::nullopt);
    const auto channel = std::exchange(m_activeChannel, std::nullopt);
    if (!note) return;
    update();
    if (m_onNoteOff) m_onNoteOff(*channel, *note);
}

void ToneKeyboardNSView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space) {
        m_spaceBar->press(*event);
        return;
    }
    const int step = cursorStep(event->key());
    if (step == 0) return QWidget::keyPressEvent(event);
    moveCursorTo(std::clamp(m_cursorNote + step, 0, Geometry::lastNote));
    showCursor();
}

void ToneKeyboardNSView::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Space) return QWidget::keyReleaseEvent(event);
    m_spaceBar->release(*event);
}

void ToneKeyboardNSView::moveCursorTo(int note)
{
    m_cursorNote = note;
    setAccessibleDescription(noteName(note));
    update();
}

void ToneKeyboardNSView::showCursor()
{
    m_showsCursor = true;
    update();
    Q_EMIT cursorShown(cursorRect().center());
}

void ToneKeyboardNSView::focusInEvent(QFocusEvent* event)
{
    m_showsCursor = false;
    update();
    if (event->reason() != Qt::MouseFocusReason) showCursor();
}

void ToneKeyboardNSView::focusOutEvent(QFocusEvent*)
{
    endDrag();
    update();
}

void ToneKeyboardNSView::hideEvent(QHideEvent*)
{
    endDrag();
}

} // namespace orvim
