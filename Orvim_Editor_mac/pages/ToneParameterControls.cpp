#include "pages/ToneParameterControls.h"

#include "controls/NumberSlider.h"
#include "controls/PageScrollArea.h"
#include "controls/SegmentedPicker.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>

#include <algorithm>

namespace orvim {

using tonavelle::ToneControlGroup;
using tonavelle::ToneParameter;
using tonavelle::ToneParameterID;

namespace {

constexpr int rowSpacing = 4;
constexpr int captionSpacing = 8;
constexpr int boxMargin = 10;
constexpr int captionSlack = 4; ///< labels round their text up

/// The widest caption of the table, in the font in which it is shown.
int captionWidth(const QFontMetrics& metrics)
{
    int width = 0;
    for (const ToneParameter& parameter : tonavelle::toneParameterRows())
        width = std::max(width, metrics.horizontalAdvance(fromCore(parameter.caption())));
    return width;
}

QStringList choiceTitles(const ToneParameter& parameter)
{
    QStringList titles;
    for (const std::string_view choice : parameter.choices)
        titles << fromCore(choice);
    return titles;
}

} // namespace

QGroupBox* makeToneGroup(const QString& title)
{
    auto* const box = new QGroupBox(title);
    auto* const rows = new QVBoxLayout(box);
    rows->setContentsMargins(boxMargin, boxMargin, boxMargin, boxMargin);
    rows->setSpacing(rowSpacing);
    return box;
}

void addControlRow(QGroupBox& group, const QString& caption, QWidget* control)
{
    auto* const row = new QHBoxLayout;
    row->setSpacing(captionSpacing);
    auto* const label = new QLabel(caption);
    label->setBuddy(control);
    label->setMinimumWidth(captionWidth(label->fontMetrics()) + captionSlack);
    row->addWidget(label);
    // What does not grow stands at the left, where the others begin.
    const bool grows = control->sizePolicy().horizontalPolicy() != QSizePolicy::Fixed;
    row->addWidget(control, 1, grows ? Qt::Alignment() : Qt::AlignLeft);
    static_cast<QVBoxLayout*>(group.layout())->addLayout(row);
}

QGroupBox* ToneParameterControls::addGroup(ToneControlGroup group)
{
    QGroupBox* const box = makeToneGroup(fromCore(tonavelle::caption(group)));
    for (const ToneParameter& parameter : tonavelle::toneParameterRows())
        if (parameter.group == group) addControl(*box, parameter);
    return box;
}

void ToneParameterControls::addControl(QGroupBox& box, const ToneParameter& parameter)
{
    const bool isChosenFromMenu = parameter.choiceControl == tonavelle::ToneChoiceControl::menu;
    const bool isToggle = std::holds_alternative<bool tonavelle::ChannelToneValues::*>(parameter.field);
    QWidget* const control = isToggle                    ? makeToggle(parameter)
                             : parameter.choices.empty() ? makeSlider(parameter)
                             : isChosenFromMenu          ? makeMenu(parameter)
                                                         : makeButtons(parameter);
    addControlRow(box, fromCore(parameter.caption()), control);
}

QWidget* ToneParameterControls::makeSlider(const ToneParameter& parameter)
{
    auto* const slider =
        new NumberSlider(fromCore(parameter.caption()), parameter.range.lowest, parameter.range.highest);
    connect(slider, &NumberSlider::valueChanged, this,
            [this, id = parameter.id](double value) { Q_EMIT chosen(id, value); });
    m_shows[parameter.id] = [slider](int value) { slider->setValue(value); };
    return slider;
}

QWidget* ToneParameterControls::makeButtons(const ToneParameter& parameter)
{
    auto* const picker = new SegmentedPicker(choiceTitles(parameter));
    picker->setObjectName(fromCore(parameter.caption()));
    picker->setAccessibleName(fromCore(parameter.caption()));
    connect(picker, &SegmentedPicker::picked, this, [this, id = parameter.id](int value) { Q_EMIT chosen(id, value); });
    m_shows[parameter.id] = [picker](int value) { picker->setCurrentIndex(value); };
    return picker;
}

QWidget* ToneParameterControls::makeMenu(const ToneParameter& parameter)
{
    auto* const menu = new QComboBox;
    scrollPageUnlessFocused(*menu);
    menu->setObjectName(fromCore(parameter.caption()));
    menu->setAccessibleName(fromCore(parameter.caption()));
    menu->addItems(choiceTitles(parameter));
    connect(menu, &QComboBox::currentIndexChanged, this,
            [this, id = parameter.id](int value) { Q_EMIT chosen(id, value); });
    m_shows[parameter.id] = [menu](int value) {
        const QSignalBlocker silent(menu);
        menu->setCurrentIndex(value);
    };
    return menu;
}

QWidget* ToneParameterControls::makeToggle(const ToneParameter& parameter)
{
    auto* const toggle = new QCheckBox;
    toggle->setObjectName(fromCore(parameter.caption()));
    toggle->setAccessibleName(fromCore(parameter.caption()));
    connect(toggle, &QCheckBox::clicked, this, [this, id = parameter.id](bool on) { Q_EMIT chosen(id, on ? 1 : 0); });
    m_shows[parameter.id] = [toggle](int value) { toggle->setChecked(value != 0); };
    return toggle;
}

} // namespace orvim
