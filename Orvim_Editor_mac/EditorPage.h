#pragma once

#include <QString>

#include <array>
#include <cstddef>

namespace orvim {

/// The seven pages, in the order of the sidebar.
enum class EditorPage {
    command,
    toneEditor,
    imageTransfer,
    samplingSound,
    lyrics,
    information,
    displaySimulatorSettings,
};

inline constexpr std::array<EditorPage, 7> allEditorPages{
    EditorPage::command,
    EditorPage::toneEditor,
    EditorPage::imageTransfer,
    EditorPage::samplingSound,
    EditorPage::lyrics,
    EditorPage::information,
    EditorPage::displaySimulatorSettings,
};

/// The page's identity as text, such as "toneEditor".
QString rawValue(EditorPage page);
/// The page's title in the sidebar and in its header.
QString title(EditorPage page);
/// The name of the page's symbol, a file of the icon folder.
QString symbol(EditorPage page);

} // namespace orvim
