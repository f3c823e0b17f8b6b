#pragma once

#include "controls/OncePerTurn.h"

#include <QWidget>

#include <array>

class QCheckBox;
class QComboBox;
class QLabel;
class QSpinBox;

namespace orvim {

class DisplaySimulatorPreviewView;
class DisplaySimulatorState;
class SegmentedPicker;
class TickSnappingSlider;
class VerticalIndicatorSlider;
struct DisplayFields;

/// The page "画面シミュレータ設定": forces any state of the simulated screen by hand, with the live picture beside it.
/// It sends nothing. Every control follows the state, whoever changes it.
class DisplaySimulatorSettingsPageView : public QWidget
{
    Q_OBJECT

public:
    /// The state must outlive the page.
    explicit DisplaySimulatorSettingsPageView(DisplaySimulatorState& state, QWidget* parent = nullptr);

Q_SIGNALS:
    /// The user wants the simulator's window in front; the state already calls it visible.
    void windowRequested();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* makeUsageGroup();
    QWidget* makeWindowGroup();
    QWidget* makeIndicatorGroup();
    QWidget* makeBars();
    QWidget* makeOscilloscopeGroup();
    QWidget* makeSpecialGroup();
    QWidget* makeOtherGroup();
    void followState();
    void showIndicators(const DisplayFields& fields);
    void showBars(const DisplayFields& fields);
    void writeIndicators();
    void writeBar(std::size_t index, double value);

    DisplaySimulatorState& m_state;
    OncePerTurn m_following;
    DisplaySimulatorPreviewView* m_preview = nullptr;
    QCheckBox* m_showsBorder = nullptr;
    QCheckBox* m_alwaysOnTop = nullptr;
    QComboBox* m_scale = nullptr;
    QComboBox* m_colorMode = nullptr;
    TickSnappingSlider* m_leftLevel = nullptr;
    TickSnappingSlider* m_rightLevel = nullptr;
    QLabel* m_leftValue = nullptr;
    QLabel* m_rightValue = nullptr;
    SegmentedPicker* m_subDisplay = nullptr;
    QSpinBox* m_voiceCount = nullptr;
    QCheckBox* m_showsUSB = nullptr;
    std::array<VerticalIndicatorSlider*, 16> m_bars{};
    std::array<QLabel*, 16> m_barValues{};
    QCheckBox* m_triggered = nullptr;
    TickSnappingSlider* m_knobValue = nullptr;
    QComboBox* m_errorKind = nullptr;
    QComboBox* m_displayType = nullptr;
};

} // namespace orvim
