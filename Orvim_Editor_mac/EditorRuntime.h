#pragma once

#include "EditorPage.h"

#include <QObject>

#include <memory>

namespace orvim {

class DisplaySimulatorState;
class MIDIOutLogStore;
class MIDIOutManager;
class MIDISystem;

/// The root object, made once at start: it owns what lives as long as the program and hands it down by reference.
class EditorRuntime : public QObject
{
    Q_OBJECT

public:
    /// Lists the MIDI destinations at once, so that the first window already shows them.
    explicit EditorRuntime(std::unique_ptr<MIDISystem> midiSystem);
    ~EditorRuntime() override;

    EditorPage selectedPage() const { return m_selectedPage; }
    void setSelectedPage(EditorPage page);
    bool logWindowIsVisible() const { return m_logWindowIsVisible; }
    void setLogWindowIsVisible(bool visible);

    MIDIOutLogStore& logStore() const { return *m_logStore; }
    MIDIOutManager& midiOutManager() const { return *m_midiOutManager; }
    DisplaySimulatorState& displaySimulator() const { return *m_displaySimulator; }

Q_SIGNALS:
    void selectedPageChanged(orvim::EditorPage page);
    void logWindowIsVisibleChanged(bool visible);

private:
    EditorPage m_selectedPage = EditorPage::command;
    bool m_logWindowIsVisible = false;
    // In the order of their making; the manager goes first at the end, while the output still stands.
    std::unique_ptr<DisplaySimulatorState> m_displaySimulator;
    std::unique_ptr<MIDIOutLogStore> m_logStore;
    std::unique_ptr<MIDISystem> m_midiSystem;
    std::unique_ptr<MIDIOutManager> m_midiOutManager;
};

} // namespace orvim
