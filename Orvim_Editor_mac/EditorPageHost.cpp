#include "EditorPageHost.h"

#include "EditorRuntime.h"
#include "PageScaffold.h"
#include "pages/CommandPageView.h"
#include "pages/InformationPageView.h"

#include <QLabel>

namespace orvim {

EditorPageHost::EditorPageHost(EditorRuntime& runtime, QWidget* parent) : QStackedWidget(parent)
{
    for (const EditorPage page : allEditorPages)
        addPage(new PageScaffold(page, this));
    page(EditorPage::command).setContent(new CommandPageView(runtime));
    page(EditorPage::information).setContent(new InformationPageView);

    const auto showSelected = [this](EditorPage page) { setCurrentIndex(static_cast<int>(page)); };
    connect(&runtime, &EditorRuntime::selectedPageChanged, this, showSelected);
    showSelected(runtime.selectedPage());
}

PageScaffold& EditorPageHost::page(EditorPage page) const
{
    return *m_pages[static_cast<std::size_t>(page)];
}

void EditorPageHost::addPage(PageScaffold* page)
{
    m_pages[static_cast<std::size_t>(page->page())] = page;
    addWidget(page);
}

} // namespace orvim
