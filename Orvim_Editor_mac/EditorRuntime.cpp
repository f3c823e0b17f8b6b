#include "EditorRuntime.h"

#include "DisplaySimulatorState.h"
#include "MIDIOutLogStore.h"
#include "MIDIOutManager.h"
#include "platform/MIDISystem.h"

namespace orvim {

EditorRuntime::EditorRuntime(std::unique_ptr<MIDISystem> midiSystem)
    : m_displaySimulator(std::make_unique<DisplaySimulatorState>()), m_logStore(std::make_unique<MIDIOutLogStore>()),
      m_midiSystem(std::move(midiSystem)),
      m_midiOutManager(std::make_unique<MIDIOutManager>(*m_logStore, *m_midiSystem))
{
}

EditorRuntime::~EditorRuntime() = default;

void EditorRuntime::setSelectedPage(EditorPage page)
{
    if (m_selectedPage == page) return;
    m_selectedPage = page;
    Q_EMIT selectedPageChanged(page);
}

void EditorRuntime::setLogWindowIsVisible(bool visible)
{
    if (m_logWindowIsVisible == visible) return;
    m_logWindowIsVisible = visible;
    Q_EMIT logWindowIsVisibleChanged(visible);
}

} // namespace orvim
