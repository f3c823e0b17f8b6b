#pragma once

#include "EditorPage.h"

#include <QStackedWidget>

#include <array>

namespace orvim {

class Dialogs;
class EditorRuntime;
class PageScaffold;

/// Holds all seven pages, alive from the start, and shows the selected one; what stands in a page survives a change.
class EditorPageHost : public QStackedWidget
{
    Q_OBJECT

public:
    EditorPageHost(EditorRuntime& runtime, Dialogs& dialogs, QWidget* parent = nullptr);

    PageScaffold& page(EditorPage page) const;

Q_SIGNALS:
    /// The user wants to see the simulator's window.
    void simulatorWindowRequested();

private:
    void addPage(PageScaffold* page);

    std::array<PageScaffold*, allEditorPages.size()> m_pages{};
};

} // namespace orvim
