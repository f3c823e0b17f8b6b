#include "pages/ToneKeyboardView.h"

#include "MIDIOutManager.h"
#include "controls/SidewardScrollArea.h"
#include "controls/ToneKeyboardGeometry.h"
#include "controls/ToneKeyboardNSView.h"
#include "core/protocol/MIDIMessageBuilder.h"

#include <QHBoxLayout>

namespace orvim {

namespace MIDIMessageBuilder = tonavelle::MIDIMessageBuilder;

namespace {

constexpr int velocity = 127;
constexpr int margin = 8;
constexpr int keyMargin = 2 * ToneKeyboardGeometry::whiteWidth; ///< shown beside the key that the arrows reach

} // namespace

ToneKeyboardView::ToneKeyboardView(MIDIOutManager& midiOutManager, QWidget* parent) : QWidget(parent)
{
    const auto noteOn = [&midiOutManager](int channel, int note) {
        midiOutManager.sendRealtimeNow({MIDIMessageBuilder::noteOn(channel, note, velocity)});
    };
    const auto noteOff = [&midiOutManager](int channel, int note) {
        midiOutManager.sendRealtimeNow({MIDIMessageBuilder::noteOff(channel, note, 0)});
    };
    m_keyboard = new ToneKeyboardNSView(noteOn, noteOff);
    m_keyboard->setObjectName(QStringLiteral("keyboard"));
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    auto* const scrollArea = new SidewardScrollArea(m_keyboard);
    scrollArea->setObjectName(QStringLiteral("keyboardArea"));
    layout->addWidget(scrollArea);
    connect(m_keyboard, &ToneKeyboardNSView::cursorShown, scrollArea,
            [scrollArea](QPoint middle) { scrollArea->ensureVisible(middle.x(), middle.y(), keyMargin, 0); });
}

void ToneKeyboardView::setChannel(int channel)
{
    m_keyboard->setChannel(channel);
}

} // namespace orvim
