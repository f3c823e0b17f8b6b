#include "EditorPageHost.h"

#include "EditorRuntime.h"
#include "PageScaffold.h"
#include "pages/CommandPageView.h"
#include "pages/DisplaySimulatorSettingsPageView.h"
#include "pages/ImageTransferPageView.h"
#include "pages/InformationPageView.h"
#include "pages/LyricsPageView.h"
#include "pages/SoundTransferPageView.h"
#include "pages/ToneEditorPageView.h"

namespace orvim {

EditorPageHost::EditorPageHost(EditorRuntime& runtime, Dialogs& dialogs, QWidget* parent) : QStackedWidget(parent)
{
    for (const EditorPage page : allEditorPages)
        addPage(new PageScaffold(page, this));
    page(EditorPage::command).setContent(new CommandPageView(runtime));
    auto* const toneEditor = new ToneEditorPageView(runtime, dialogs);
    toneEditor->fillHeader(page(EditorPage::toneEditor).header());
    page(EditorPage::toneEditor).setContent(toneEditor);
    auto* const images = new ImageTransferPageView(runtime, dialogs);
    images->fillHeader(page(EditorPage::imageTransfer).header());
    page(EditorPage::imageTransfer).setContent(images);
    auto* const sounds = new SoundTransferPageView(runtime, dialogs);
    sounds->fillHeader(page(EditorPage::samplingSound).header());
    page(EditorPage::samplingSound).setContent(sounds);
    auto* const lyrics = new LyricsPageView(runtime, dialogs);
    lyrics->fillHeader(page(EditorPage::lyrics).header());
    page(EditorPage::lyrics).setContent(lyrics);
    page(EditorPage::information).setContent(new InformationPageView);
    auto* const settings = new DisplaySimulatorSettingsPageView(runtime.displaySimulator());
    connect(settings, &DisplaySimulatorSettingsPageView::windowRequested, this,
            &EditorPageHost::simulatorWindowRequested);
    page(EditorPage::displaySimulatorSettings).setContent(settings);

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
