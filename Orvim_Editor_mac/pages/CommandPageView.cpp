#include "pages/CommandPageView.h"

#include "EditorRuntime.h"
#include "controls/ColorSwatch.h"
#include "controls/DotGridView.h"
#include "controls/PageScrollArea.h"
#include "controls/TickSnappingSlider.h"
#include "controls/ValidatedTextField.h"
#include "simulator/DisplayNames.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace orvim {

using tonavelle::JapaneseCharacterLine;
using tonavelle::UIFacePart;
namespace SysExBuilder = tonavelle::SysExBuilder;

namespace {

constexpr int buttonWidth = 144;
constexpr int buttonColumns = 4;
constexpr int spacing = 8;
constexpr int pageMargin = 16;
constexpr int sectionSpacing = 14;
constexpr int sectionWidth = 720;
constexpr int sliderWidth = 400;
constexpr int valueWidth = 36;
constexpr int swatchWidth = 96;
constexpr int facePickerWidth = 120;
constexpr int textFieldWidth = 500;
constexpr int textFieldPixelSize = 14;
constexpr double highestColor = 127;

constexpr std::array<ResetCommand, 5> resetCommands{{
    {"Tonavelle Reset", "Tonavelle Reset", SysExBuilder::tonavelleReset},
    {"GMシステムオン", "GM System ON", SysExBuilder::gmSystemOn},
    {"GM2システムオン", "GM2 System ON", SysExBuilder::gm2SystemOn},
    {"GSリセット", "GS Reset", SysExBuilder::gsReset},
    {"XGシステムオン", "XG System ON", SysExBuilder::xgSystemOn},
}};

constexpr std::array<const char*, 4> eyebrowNames{"普通", "優しげ", "悲しみ", "怒り"};
constexpr std::array<const char*, 7> eyeNames{"開く", "中間", "閉じる", "スマイル", "＞＜", "しいたけ", "ウィンク"};
constexpr std::array<const char*, 9> mouthNames{"閉じる", "あ", "い", "う", "え", "お", "舌", "文句", "中割り"};

QGroupBox* makeSection(const QString& title)
{
    auto* const section = new QGroupBox(title);
    section->setMaximumWidth(sectionWidth);
    return section;
}

QPushButton* makeButton(const QString& title)
{
    auto* const button = new QPushButton(title);
    button->setObjectName(title);
    button->setMinimumWidth(buttonWidth);
    return button;
}

/// Buttons in rows of four; the grid keeps to the left.
class ButtonGrid
{
public:
    explicit ButtonGrid(QWidget* section) : m_layout(new QGridLayout(section))
    {
        m_layout->setSpacing(spacing);
        m_layout->setColumnStretch(buttonColumns, 1);
    }

    void add(QPushButton* button)
    {
        m_layout->addWidget(button, m_count / buttonColumns, m_count % buttonColumns);
        ++m_count;
    }

private:
    QGridLayout* m_layout;
    int m_count = 0;
};

QLabel* makeCaption(const QString& text, QWidget* buddy)
{
    auto* const caption = new QLabel(text);
    caption->setBuddy(buddy);
    return caption;
}

} // namespace

CommandPageView::CommandPageView(EditorRuntime& runtime, QWidget* parent)
    : QWidget(parent), m_actions(runtime.midiOutManager(), runtime.displaySimulator())
{
    auto* const column = new QWidget;
    auto* const sections = new QVBoxLayout(column);
    sections->setContentsMargins(pageMargin, pageMargin, pageMargin, pageMargin);
    sections->setSpacing(sectionSpacing);
    for (QWidget* const section : {makeResetSection(), makeUITypeSection(), makeColorSection(), makeFaceSection(),
                                   makeTextSection(), makeDotSection(), makeSpecialSection()})
        sections->addWidget(section);
    sections->addStretch(1);

    auto* const scrollArea = new PageScrollArea(Scrollbars::permanent, this);
    scrollArea->setWidget(column);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(scrollArea);

    connect(&m_actions, &CommandPageActions::faceChanged, this, &CommandPageView::showFace);
    connect(&m_actions, &CommandPageActions::dotsChanged, this, &CommandPageView::showDots);
}

QWidget* CommandPageView::makeResetSection()
{
    auto* const section = makeSection(tr("リセット命令(Reset)"));
    ButtonGrid buttons(section);
    for (const ResetCommand& command : resetCommands) {
        auto* const button = makeButton(QString::fromUtf8(command.title));
        connect(button, &QPushButton::clicked, this, [this, &command] { m_actions.reset(command); });
        buttons.add(button);
    }
    return section;
}

QWidget* CommandPageView::makeUITypeSection()
{
    auto* const section = makeSection(tr("画面タイプ(UI Type Set)"));
    ButtonGrid buttons(section);
    for (unsigned value = 0; value < displayTypeNames.size(); ++value) {
        auto* const button = makeButton(QString::fromUtf8(displayTypeNames[value]));
        connect(button, &QPushButton::clicked, this, [this, value] { m_actions.setUIType(value); });
        buttons.add(button);
    }
    return section;
}

QWidget* CommandPageView::makeColorSection()
{
    auto* const section = makeSection(tr("画面配色変更"));
    auto* const grid = new QGridLayout(section);
    grid->setHorizontalSpacing(spacing);
    addColorRow(*grid, tr("R"), &CommandPageState::red, &CommandPageActions::setRed);
    addColorRow(*grid, tr("G"), &CommandPageState::green, &CommandPageActions::setGreen);
    addColorRow(*grid, tr("B"), &CommandPageState::blue, &CommandPageActions::setBlue);

    m_swatch = new ColorSwatch;
    m_swatch->setObjectName(QStringLiteral("colorSwatch"));
    m_swatch->setAccessibleName(tr("画面配色"));
    m_swatch->setFixedWidth(swatchWidth);
    grid->addWidget(m_swatch, 0, 3, grid->rowCount(), 1);
    grid->setColumnStretch(4, 1);
    showColor();
    return section;
}

void CommandPageView::addColorRow(QGridLayout& grid, const QString& label, double CommandPageState::*component,
                                  void (CommandPageActions::*set)(double))
{
    auto* const slider = new TickSnappingSlider(Qt::Horizontal, 0, highestColor, 1);
    slider->setObjectName(label);
    slider->setAccessibleName(label);
    slider->setFixedWidth(sliderWidth);
    slider->setValue(m_actions.state().*component);
    auto* const value = new QLabel(QString::number(slider->value()));
    value->setFixedWidth(valueWidth);
    value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    connect(slider, &TickSnappingSlider::valueChanged, this, [this, value, set](double newValue) {
        value->setText(QString::number(newValue));
        (m_actions.*set)(newValue);
        showColor();
    });

    const int row = grid.count() == 0 ? 0 : grid.rowCount();
    grid.addWidget(makeCaption(label, slider), row, 0);
    grid.addWidget(slider, row, 1);
    grid.addWidget(value, row, 2);
}

QWidget* CommandPageView::makeFaceSection()
{
    auto* const section = makeSection(tr("リップシンク画面(UI Face set)"));
    auto* const rows = new QVBoxLayout(section);
    rows->setSpacing(spacing);

    auto* const resetButton = makeButton(tr("表情を初期化"));
    connect(resetButton, &QPushButton::clicked, &m_actions, &CommandPageActions::resetFace);
    rows->addWidget(resetButton, 0, Qt::AlignLeft);

    auto* const parts = new QHBoxLayout;
    parts->setSpacing(spacing);
    const auto addPart = [&](const QString& label, UIFacePart part, std::span<const char* const> names) {
        auto* const picker = makeFacePicker(part, label, names);
        parts->addWidget(makeCaption(label, picker));
        parts->addWidget(picker);
        parts->addSpacing(2 * spacing);
        return picker;
    };
    m_eyebrow = addPart(tr("眉："), UIFacePart::eyebrow, eyebrowNames);
    m_eye = addPart(tr("目："), UIFacePart::eye, eyeNames);
    m_mouth = addPart(tr("口："), UIFacePart::mouth, mouthNames);
    parts->addStretch(1);
    rows->addLayout(parts);

    auto* const blinking = new QHBoxLayout;
    blinking->setSpacing(spacing);
    blinking->addWidget(new QLabel(tr("自動まばたき：")));
    for (const bool on : {true, false}) {
        auto* const button = makeButton(on ? tr("ON") : tr("OFF"));
        button->setAccessibleDescription(tr("自動まばたき"));
        connect(button, &QPushButton::clicked, this, [this, on] { m_actions.setFaceBlinking(on); });
        blinking->addWidget(button);
    }
    blinking->addStretch(1);
    rows->addLayout(blinking);
    return section;
}

QComboBox* CommandPageView::makeFacePicker(UIFacePart part, const QString& label, std::span<const char* const> names)
{
    auto* const picker = new QComboBox;
    scrollPageUnlessFocused(*picker);
    picker->setObjectName(label);
    picker->setAccessibleName(label);
    picker->setFixedWidth(facePickerWidth);
    for (const char* const name : names)
        picker->addItem(QString::fromUtf8(name));
    connect(picker, &QComboBox::currentIndexChanged, this,
            [this, part](int index) { m_actions.setFacePart(part, index); });
    return picker;
}

QWidget* CommandPageView::makeTextSection()
{
    auto* const section = makeSection(tr("文字表示機能"));
    auto* const rows = new QVBoxLayout(section);
    rows->setSpacing(spacing);

    auto* const modes = new QHBoxLayout;
    modes->setSpacing(spacing);
    for (const bool on : {false, true}) {
        auto* const button = makeButton(on ? tr("日本語表示ON") : tr("日本語表示OFF"));
        connect(button, &QPushButton::clicked, this, [this, on] { m_actions.setJapaneseMode(on); });
        modes->addWidget(button);
    }
    modes->addStretch(1);
    rows->addLayout(modes);

    auto* const fields = new QGridLayout;
    fields->setSpacing(spacing);
    fields->setColumnStretch(2, 1);
    rows->addLayout(fields);
    const auto addField = [&](const QString& label, auto filter, auto commit) {
        auto* const field = new ValidatedTextField(filter);
        field->setObjectName(label);
        field->setAccessibleName(label);
        field->setFixedWidth(textFieldWidth);
        field->setFontSize(textFieldPixelSize);
        connect(field, &ValidatedTextField::textCommitted, this, commit);
        const int row = fields->count() == 0 ? 0 : fields->rowCount();
        fields->addWidget(makeCaption(label, field), row, 0);
        fields->addWidget(field, row, 1);
    };
    const auto unfiltered = [](const QString& text) { return text; };
    addField(tr("ASCII："), filteredASCII, [this](const QString& text) { m_actions.setAsciiText(text); });
    addField(tr("日本語(上段)："), unfiltered,
             [this](const QString& text) { m_actions.setJapaneseText(JapaneseCharacterLine::upper, text); });
    addField(tr("日本語(下段)："), unfiltered,
             [this](const QString& text) { m_actions.setJapaneseText(JapaneseCharacterLine::lower, text); });
    return section;
}

QWidget* CommandPageView::makeDotSection()
{
    auto* const section = makeSection(tr("ドット絵表示機能"));
    auto* const row = new QHBoxLayout(section);
    row->setSpacing(2 * spacing);

    m_dotGrid = new DotGridView;
    m_dotGrid->setObjectName(QStringLiteral("dotGrid"));
    connect(m_dotGrid, &DotGridView::dragged, &m_actions, &CommandPageActions::dragDot);
    connect(m_dotGrid, &DotGridView::released, &m_actions, &CommandPageActions::endDotStroke);
    connect(m_dotGrid, &DotGridView::cellPressed, this, [this](int x, int y) { m_actions.toggleDot({x, y}); });
    row->addWidget(m_dotGrid, 0, Qt::AlignTop);

    auto* const buttons = new QVBoxLayout;
    buttons->setSpacing(spacing);
    const auto addButton = [&](const QString& title, auto action) {
        auto* const button = makeButton(title);
        connect(button, &QPushButton::clicked, this, action);
        buttons->addWidget(button);
    };
    addButton(tr("全点灯"), [this] { m_actions.fillDots(true); });
    addButton(tr("全消灯"), [this] { m_actions.fillDots(false); });
    addButton(tr("反転"), [this] { m_actions.invertDots(); });
    addButton(tr("送信"), [this] { m_actions.sendDots(); });
    buttons->addStretch(1);
    row->addLayout(buttons);
    row->addStretch(1);
    return section;
}

QWidget* CommandPageView::makeSpecialSection()
{
    auto* const section = makeSection(tr("特殊"));
    ButtonGrid buttons(section);
    const auto addButton = [&](const QString& title, auto action) {
        auto* const button = makeButton(title);
        connect(button, &QPushButton::clicked, this, action);
        buttons.add(button);
    };
    addButton(tr("パニック"), [this] { m_actions.panic(); });
    addButton(tr("デバッグ情報OFF"), [this] { m_actions.setDebugMode(false); });
    addButton(tr("デバッグ情報ON"), [this] { m_actions.setDebugMode(true); });
    addButton(tr("バージョン表示"), [this] { m_actions.showVersion(); });
    return section;
}

void CommandPageView::showColor()
{
    const CommandPageState& state = m_actions.state();
    m_swatch->setColor(QColor::fromRgbF(static_cast<float>(state.red / highestColor),
                                        static_cast<float>(state.green / highestColor),
                                        static_cast<float>(state.blue / highestColor)));
}

void CommandPageView::showFace()
{
    const CommandPageState& state = m_actions.state();
    m_eyebrow->setCurrentIndex(state.eyebrow);
    m_eye->setCurrentIndex(state.eye);
    m_mouth->setCurrentIndex(state.mouth);
}

void CommandPageView::showDots()
{
    m_dotGrid->setDots(m_actions.state().dotValues);
}

} // namespace orvim
