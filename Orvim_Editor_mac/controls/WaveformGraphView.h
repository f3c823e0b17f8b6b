#pragma once

#include "controls/GraphDrawing.h"
#include "controls/WaveformGraph.h"

#include <QWidget>

#include <optional>

namespace orvim {

/// A picture of a wave after ring modulation; a type without a picture leaves it empty.
class WaveformGraphView : public QWidget
{
    Q_OBJECT

public:
    explicit WaveformGraphView(QWidget* parent = nullptr);

    const WaveformGraphParameters& parameters() const { return m_parameters; }
    /// `userSamples`: of the slot that the type names, where it names one.
    void setWave(const WaveformGraphParameters& parameters,
                 const std::optional<std::vector<std::int16_t>>& userSamples);
    void setCounts(int sampleCount, int phaseCount);
    void setColors(const GraphColors& colors);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void describe();

    WaveformGraphParameters m_parameters;
    std::optional<std::vector<std::int16_t>> m_userSamples;
    int m_sampleCount = 2048;
    int m_phaseCount = 1;
    GraphColors m_colors;
};

} // namespace orvim
