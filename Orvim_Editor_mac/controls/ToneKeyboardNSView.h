#pragma once

#include <QWidget>

#include <functional>
#include <optional>

namespace orvim {

class HeldKey;

/// A small piano keyboard, played with the pointer, one note at a time: a drag over the keys is a glissando, and a note
/// never outlives the pointer's stay, the focus or the view itself. With the keyboard, arrows choose a key and the
/// space bar plays it while it is down.
class ToneKeyboardNSView : public QWidget
{
    Q_OBJECT

public:
    using OnNote = std::function<void(int channel, int note)>;

    ToneKeyboardNSView(OnNote onNoteOn, OnNote onNoteOff, QWidget* parent = nullptr);

    /// The channel (0...15) of the next note; one that sounds ends on the channel where it began.
    int channel() const { return m_channel; }
    void setChannel(int channel) { m_channel = channel; }
    std::optional<int> activeNote() const { return m_activeNote; }

    QSize sizeHint() const override;

Q_SIGNALS:
    /// The keyboard's focus or an arrow has come to the key around `middle`, in the view's coordinates.
    void cursorShown(QPoint middle);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void dragTo(QPointF point);
    void endDrag();
    void play(int note);
    void endNote();
    void moveCursorTo(int note);
    void showCursor();
    QRect cursorRect() const;
    QColor keyColor(int note) const;

    HeldKey* m_spaceBar = nullptr;
    int m_channel = 0;
    OnNote m_onNoteOn;
    OnNote m_onNoteOff;
    std::optional<int> m_activeNote;
    std::optional<int> m_activeChannel; ///< present together with the note
    bool m_isDragging = false;          ///< the pointer plays, on a key or beside the keys
    int m_cursorNote = 60;
    bool m_showsCursor = false; ///< only who came by the keyboard needs it
};

} // namespace orvim
