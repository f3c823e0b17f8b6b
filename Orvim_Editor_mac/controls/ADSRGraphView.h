#pragma once

#include "controls/ADSREnvelope.h"
#include "controls/GraphDrawing.h"

#include <QWidget>

namespace orvim {

/// A picture of an envelope, from the note's beginning on, with the moment at which the note ends.
class ADSRGraphView : public QWidget
{
    Q_OBJECT

public:
    explicit ADSRGraphView(QWidget* parent = nullptr);

    const ADSRParameters& parameters() const { return m_parameters; }
    void setParameters(const ADSRParameters& parameters);
    void setColors(const GraphColors& colors);

    /// Where a point of the envelope stands, in the view's coordinates.
    static QPoint position(const EnvelopePoint& point);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QColor markColor() const;
    void drawTexts(QPainter& painter) const;
    void drawLines(QPainter& painter) const;
    void describe();

    ADSRParameters m_parameters;
    GraphColors m_colors;
};

} // namespace orvim
