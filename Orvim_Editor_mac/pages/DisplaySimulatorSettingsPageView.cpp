#include "pages/DisplaySimulatorSettingsPageView.h"

#include "DisplaySimulatorState.h"
#include "controls/PageScrollArea.h"
#include "controls/SegmentedPicker.h"
#include "controls/TickSnappingSlider.h"
#include "controls/VerticalIndicatorSlider.h"
#include "simulator/DisplayNames.h"
#include "simulator/DisplaySimulatorPreviewView.h"
#include "simulator/DisplaySimulatorWindowView.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>

#include <cmath>
#include <span>

namespace orvim {

namespace {

constexpr int wideGroup = 650;
constexpr int narrowGroup = 390;
constexpr int scalePickerWidth = 160;
constexpr int colorPickerWidth = 150;
constexpr int typePickerWidth = 180;
constexpr int buttonWidth = 110;
constexpr int levelValueWidth = 28;
constexpr int barHeight = 150;
constexpr int pageMargin = 16;
constexpr int groupSpacing = 14;
constexpr int spacing = 8;
constexpr int scrollBarRoom = 16;

using SpecialMode = DisplaySimulatorSpecialMode;

QGroupBox* makeGroup(const QString& title, int width)
{
    auto* group = new QGroupBox(title);
    group->setObjectName(title);
    group->setFixedWidth(width);
    return group;
}

void name(QWidget& control, const QString& label)
{
    control.setObjectName(label);
    control.setAccessibleName(label);
}

QComboBox* makePicker(const QString& label, std::span<const char* const> names, int width)
{
    auto* picker = new QComboBox;
    name(*picker, label);
    for (const char* choice : names)
        picker->addItem(QString::fromUtf8(choice));
    picker->setFixedWidth(width);
    scrollPageUnlessFocused(*picker);
    return picker;
}

TickSnappingSlider* makeSlider(const QString& label, double highest)
{
    auto* slider = new TickSnappingSlider(Qt::Horizontal, 0, highest, 1);
    name(*slider, label);
    return slider;
}

QPushButton* makeButton(const QString& title)
{
    auto* button = new QPushButton(title);
    button->setObjectName(title);
    button->setMinimumWidth(buttonWidth);
    return button;
}

QLabel* makeCaption(const QString& text, QWidget* buddy)
{
    auto* caption = new QLabel(text);
    caption->setBuddy(buddy);
    return caption;
}

} // namespace

DisplaySimulatorSettingsPageView::DisplaySimulatorSettingsPageView(DisplaySimulatorState& state, QWidget* parent)
    : QWidget(parent), m_state(state), m_following(this, [this] { followState(); })
{
    auto* groups = new QWidget;
    auto* column = new QVBoxLayout(groups);
    column->setContentsMargins(pageMargin, pageMargin, pageMargin, pageMargin);
    column->setSpacing(groupSpacing);
    for (auto* group :
         {makeUsageGroup(), makeWindowGroup(), makeIndicatorGroup(), makeSpecialGroup(), makeOtherGroup()})
        column->addWidget(group, 0, Qt::AlignLeft);
    column->addStretch(1);

    auto* scrollArea = new PageScrollArea(Scrollbars::permanent);
    scrollArea->setWidget(groups);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(scrollArea);
    // The picture does not scroll with the groups; what the wheel does over it goes to them.
    m_preview = new DisplaySimulatorPreviewView(state, this);
    m_preview->setAttribute(Qt::WA_TransparentForMouseEvents);

    connect(&state, &DisplaySimulatorState::changed, &m_following, &OncePerTurn::request);
    followState();
}

QWidget* DisplaySimulatorSettingsPageView::makeUsageGroup()
{
    auto* group = makeGroup(tr("使い方"), wideGroup);
    auto* rows = new QVBoxLayout(group);
    rows->setSpacing(spacing);
    auto* text = new QLabel(tr("画面シミュレータ用の設定です。Tonavelle™ mini実機には反映されません。"));
    text->setWordWrap(true);
    rows->addWidget(text);
    auto* button = makeButton(tr("画面シミュレータを表示"));
    connect(button, &QPushButton::clicked, this, [this] {
        m_state.setWindowVisible(true);
        Q_EMIT windowRequested();
    });
    rows->addWidget(button, 0, Qt::AlignLeft);
    return group;
}

QWidget* DisplaySimulatorSettingsPageView::makeWindowGroup()
{
    auto* group = makeGroup(tr("シミュレータウィンドウ"), wideGroup);
    auto* grid = new QGridLayout(group);
    grid->setSpacing(spacing);
    grid->setColumnMinimumWidth(1, 4 * spacing);
    grid->setColumnStretch(4, 1);

    m_showsBorder = new QCheckBox(tr("境界表示"));
    m_alwaysOnTop = new QCheckBox(tr("常に最前面に表示"));
    m_alwaysOnTop->setToolTip(DisplaySimulatorWindowView::stayOnTopHint());
    for (auto* box : {m_showsBorder, m_alwaysOnTop})
        name(*box, box->text());
    m_scale = makePicker(tr("解像度"), windowScaleNames, scalePickerWidth);
    m_colorMode = makePicker(tr("色モード"), colorModeNames, colorPickerWidth);

    grid->addWidget(m_showsBorder, 0, 0);
    grid->addWidget(m_alwaysOnTop, 1, 0);
    grid->addWidget(makeCaption(tr("解像度"), m_scale), 0, 2);
    grid->addWidget(m_scale, 0, 3, Qt::AlignLeft);
    grid->addWidget(makeCaption(tr("色モード"), m_colorMode), 1, 2);
    grid->addWidget(m_colorMode, 1, 3, Qt::AlignLeft);

    connect(m_showsBorder, &QCheckBox::clicked, &m_state, &DisplaySimulatorState::setWindowShowsBorder);
    connect(m_alwaysOnTop, &QCheckBox::clicked, &m_state, &DisplaySimulatorState::setWindowAlwaysOnTop);
    connect(m_scale, &QComboBox::activated, this, [this](int index) { m_state.setWindowScale(index + 1); });
    connect(m_colorMode, &QComboBox::activated, this,
            [this](int index) { m_state.setColorMode(static_cast<DisplaySimulatorColorMode>(index)); });
    return group;
}

QWidget* DisplaySimulatorSettingsPageView::makeIndicatorGroup()
{
    auto* group = makeGroup(tr("インジケーター"), wideGroup);
    auto* rows = new QVBoxLayout(group);
    rows->setSpacing(spacing);

    auto* levels = new QGridLayout;
    levels->setSpacing(spacing);
    const auto addLevel = [&](const QString& label, QLabel*& value) {
        auto* slider = makeSlider(label, 63);
        value = new QLabel;
        value->setFixedWidth(levelValueWidth);
        value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        connect(slider, &TickSnappingSlider::valueChanged, this, &DisplaySimulatorSettingsPageView::writeIndicators);
        const int row = levels->count() == 0 ? 0 : levels->rowCount();
        levels->addWidget(makeCaption(label, slider), row, 0);
        levels->addWidget(slider, row, 1);
        levels->addWidget(value, row, 2);
        return slider;
    };
    m_leftLevel = addLevel(tr("L"), m_leftValue);
    m_rightLevel = addLevel(tr("R"), m_rightValue);
    rows->addLayout(levels);

    QStringList subDisplays;
    for (const char* choice : subDisplayNames)
        subDisplays << QString::fromUtf8(choice);
    m_subDisplay = new SegmentedPicker(subDisplays);
    name(*m_subDisplay, tr("サブ表示"));
    connect(m_subDisplay, &SegmentedPicker::picked, this, &DisplaySimulatorSettingsPageView::writeIndicators);
    m_voiceCount = new QSpinBox;
    name(*m_voiceCount, tr("Voice"));
    m_voiceCount->setPrefix(tr("Voice "));
    m_voiceCount->setRange(0, 60);
    m_voiceCount->setKeyboardTracking(false);
    scrollPageUnlessFocused(*m_voiceCount);
    connect(m_voiceCount, &QSpinBox::valueChanged, this, &DisplaySimulatorSettingsPageView::writeIndicators);
    m_showsUSB = new QCheckBox(tr("USB表示"));
    name(*m_showsUSB, m_showsUSB->text());
    connect(m_showsUSB, &QCheckBox::clicked, &m_state, &DisplaySimulatorState::setShowsUSB);

    auto* marks = new QHBoxLayout;
    marks->setSpacing(2 * spacing);
    marks->addWidget(m_subDisplay);
    marks->addWidget(m_voiceCount);
    marks->addWidget(m_showsUSB);
    marks->addStretch(1);
    rows->addLayout(marks);
    rows->addWidget(makeBars());
    rows->addWidget(makeOscilloscopeGroup());
    return group;
}

QWidget* DisplaySimulatorSettingsPageView::makeBars()
{
    auto* bars = new QWidget;
    auto* grid = new QGridLayout(bars);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(0);
    grid->setVerticalSpacing(2);
    for (std::size_t i = 0; i < m_bars.size(); ++i) {
        m_barValues[i] = new QLabel;
        m_bars[i] = new VerticalIndicatorSlider(0, 16, 1);
        name(*m_bars[i], tr("バー%1").arg(i + 1));
        m_barValues[i]->setObjectName(tr("バー%1の値").arg(i + 1));
        m_bars[i]->setFixedHeight(barHeight);
        connect(m_bars[i], &VerticalIndicatorSlider::valueChanged, this,
                [this, i](double value) { writeBar(i, value); });
        const int column = static_cast<int>(i);
        grid->addWidget(m_barValues[i], 0, column, Qt::AlignHCenter);
        grid->addWidget(m_bars[i], 1, column, Qt::AlignHCenter);
        grid->setColumnStretch(column, 1);
    }
    return bars;
}

QWidget* DisplaySimulatorSettingsPageView::makeOscilloscopeGroup()
{
    auto* group = new QGroupBox(tr("オシロスコープ画面"));
    group->setObjectName(group->title());
    auto* rows = new QVBoxLayout(group);
    m_triggered = new QCheckBox(tr("Trigger"));
    name(*m_triggered, m_triggered->text());
    connect(m_triggered, &QCheckBox::clicked, &m_state, &DisplaySimulatorState::setOscilloscopeTriggered);
    rows->addWidget(m_triggered);
    return group;
}

QWidget* DisplaySimulatorSettingsPageView::makeSpecialGroup()
{
    auto* group = makeGroup(tr("特殊画面"), narrowGroup);
    auto* grid = new QGridLayout(group);
    grid->setSpacing(spacing);
    const auto addButton = [&](const QString& title, SpecialMode mode, int row, int column) {
        auto* button = makeButton(title);
        connect(button, &QPushButton::clicked, this, [this, mode] { m_state.setSpecialMode(mode); });
        grid->addWidget(button, row, column);
    };

    addButton(tr("Volume"), SpecialMode::knob, 0, 0);
    m_knobValue = makeSlider(tr("Volumeの値"), 40);
    connect(m_knobValue, &TickSnappingSlider::valueChanged, this,
            [this](double value) { m_state.setKnobValue(static_cast<int>(std::round(value))); });
    grid->addWidget(m_knobValue, 0, 1, 1, 2);

    addButton(tr("Error"), SpecialMode::error, 1, 0);
    m_errorKind = makePicker(tr("Errorの種類"), errorKindNames, scalePickerWidth);
    connect(m_errorKind, &QComboBox::activated, this,
            [this](int index) { m_state.setErrorKind(static_cast<DisplaySimulatorErrorKind>(index)); });
    grid->addWidget(m_errorKind, 1, 1, 1, 2, Qt::AlignLeft);

    addButton(tr("Starting"), SpecialMode::starting, 2, 0);
    addButton(tr("FW Update"), SpecialMode::firmwareUpdate, 2, 1);
    addButton(tr("元に戻す"), SpecialMode::none, 2, 2);
    return group;
}

QWidget* DisplaySimulatorSettingsPageView::makeOtherGroup()
{
    auto* group = makeGroup(tr("その他"), narrowGroup);
    auto* row = new QHBoxLayout(group);
    row->setSpacing(2 * spacing);
    m_displayType = makePicker(tr("画面タイプ"), displayTypeNames, typePickerWidth);
    connect(m_displayType, &QComboBox::activated, this,
            [this](int index) { m_state.writeDisplayType(static_cast<DisplaySimulatorType>(index)); });
    row->addWidget(m_displayType);
    auto* button = makeButton(tr("上記をリセット"));
    connect(button, &QPushButton::clicked, &m_state, &DisplaySimulatorState::resetIndicators);
    row->addWidget(button);
    row->addStretch(1);
    return group;
}

void DisplaySimulatorSettingsPageView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    // Where there is no room beside the groups, the picture stands above them, so that it is always in sight.
    const int beside = wideGroup + 2 * pageMargin;
    const bool hasRoom = width() >= beside + m_preview->width() + pageMargin + scrollBarRoom;
    m_preview->move(hasRoom ? beside : pageMargin, pageMargin);
    layout()->setContentsMargins(0, hasRoom ? 0 : m_preview->geometry().bottom() + 1, 0, 0);
}

void DisplaySimulatorSettingsPageView::followState()
{
    const auto& fields = m_state.fields();
    m_showsBorder->setChecked(fields.displayWindowShowsBorder);
    m_alwaysOnTop->setChecked(fields.displayWindowAlwaysOnTop);
    m_scale->setCurrentIndex(fields.displayWindowScale - 1);
    m_colorMode->setCurrentIndex(static_cast<int>(fields.colorMode));
    showIndicators(fields);
    showBars(fields);
    m_triggered->setChecked(fields.isOscilloscopeTriggered);
    m_knobValue->setValue(fields.knobValue);
    m_errorKind->setCurrentIndex(static_cast<int>(fields.errorKind));
    m_displayType->setCurrentIndex(static_cast<int>(fields.displayType));
}

void DisplaySimulatorSettingsPageView::showIndicators(const DisplayFields& fields)
{
    m_leftLevel->setValue(fields.leftLevel);
    m_rightLevel->setValue(fields.rightLevel);
    m_leftValue->setNum(fields.leftLevel);
    m_rightValue->setNum(fields.rightLevel);
    m_subDisplay->setCurrentIndex(static_cast<int>(fields.subDisplay));
    // Setting even the same number would take away what the user is typing, and a blinking face changes the state
    // often.
    if (m_voiceCount->value() != fields.voiceCount) {
        const QSignalBlocker blocker(m_voiceCount);
        m_voiceCount->setValue(fields.voiceCount);
    }
    m_showsUSB->setChecked(fields.showsUSB);
}

void DisplaySimulatorSettingsPageView::showBars(const DisplayFields& fields)
{
    for (std::size_t i = 0; i < m_bars.size(); ++i) {
        m_bars[i]->setValue(fields.barValues[i]);
        m_barValues[i]->setText(QStringLiteral("%1").arg(fields.barValues[i], 2, 10, QLatin1Char('0')));
    }
}

void DisplaySimulatorSettingsPageView::writeIndicators()
{
    m_state.setIndicators(m_leftLevel->value(), m_rightLevel->value(), m_voiceCount->value(),
                          static_cast<DisplaySimulatorSubDisplay>(m_subDisplay->currentIndex()));
}

void DisplaySimulatorSettingsPageView::writeBar(std::size_t index, double value)
{
    auto values = m_state.fields().barValues;
    values[index] = static_cast<int>(std::round(value));
    m_state.applyBars(values);
}

} // namespace orvim
