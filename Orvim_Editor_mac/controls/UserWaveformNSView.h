#pragma once

#include "core/tone/UserWaveform.h"
#include "core/tone/WaveformDrawing.h"

#include <QWidget>

#include <functional>
#include <optional>

namespace orvim {

/// A surface on which a waveform is drawn by hand. With the keyboard, left and right choose a sample (with shift in
/// larger steps), up and down change it (page up and down in larger steps).
class UserWaveformNSView : public QWidget
{
    Q_OBJECT

public:
    using OnEditingEnded = std::function<void(const tonavelle::UserWaveform&)>;

    explicit UserWaveformNSView(QWidget* parent = nullptr);

    const tonavelle::UserWaveform& currentSamples() const { return m_currentSamples; }
    /// Shows other samples; gives up a stroke that is being drawn.
    void setCurrentSamples(const tonavelle::UserWaveform& samples);
    /// Called once with the samples when an edit ends.
    void setOnEditingEnded(OnEditingEnded onEditingEnded) { m_onEditingEnded = std::move(onEditingEnded); }
    /// Called when the keyboard asks for the samples before the last edit.
    void setOnUndo(std::function<void()> onUndo) { m_onUndo = std::move(onUndo); }
    bool isEditing() const { return m_isEditing; }
    /// Ends a stroke that is being drawn; does nothing when there is none.
    void endEditing();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void apply(QPointF position);
    void applyPoint(tonavelle::WaveformDrawing::Point point);
    bool moveCursor(const QKeyEvent& event);
    bool changeSample(int key);
    void describe();
    /// Where a sample stands, from the top.
    double yOf(int index) const;
    /// The line of pixels at a sample.
    QRect gridColumn(int index) const;
    void drawGrid(QPainter& painter) const;
    void drawSamples(QPainter& painter) const;
    void drawCursor(QPainter& painter) const;

    tonavelle::UserWaveform m_currentSamples;
    OnEditingEnded m_onEditingEnded;
    std::function<void()> m_onUndo;
    std::optional<tonavelle::WaveformDrawing::Point> m_lastDragPoint;
    bool m_isEditing = false;
    int m_cursor = 0; ///< the sample that the keyboard edits
    bool m_showsCursor = false;
};

} // namespace orvim
