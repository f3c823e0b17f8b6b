#pragma once

#include <QWidget>

namespace orvim {

class MIDIOutManager;
class ToneKeyboardNSView;

/// The keyboard below the tabs: what is played on it goes out at once and leaves no trace in the log.
class ToneKeyboardView : public QWidget
{
    Q_OBJECT

public:
    explicit ToneKeyboardView(MIDIOutManager& midiOutManager, QWidget* parent = nullptr);

    void setChannel(int channel);

private:
    ToneKeyboardNSView* m_keyboard = nullptr;
};

} // namespace orvim
