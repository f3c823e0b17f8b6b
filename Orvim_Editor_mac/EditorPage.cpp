#include "EditorPage.h"

namespace orvim {

namespace {

struct EditorPageRow {
    const char* rawValue;
    const char* title;
    const char* symbol;
};

constexpr std::array<EditorPageRow, allEditorPages.size()> rows{{
    {"command", "音源制御コマンド", "terminal"},
    {"toneEditor", "音色エディタ", "slider.horizontal.3"},
    {"imageTransfer", "画像転送", "photo"},
    {"samplingSound", "サンプリング音声転送", "waveform"},
    {"lyrics", "歌詞編集", "text.quote"},
    {"information", "情報", "info.circle"},
    {"displaySimulatorSettings", "画面シミュレータ設定", "gearshape"},
}};

const EditorPageRow& row(EditorPage page)
{
    return rows[static_cast<std::size_t>(page)];
}

} // namespace

QString rawValue(EditorPage page)
{
    return QString::fromUtf8(row(page).rawValue);
}

QString title(EditorPage page)
{
    return QString::fromUtf8(row(page).title);
}

QString symbol(EditorPage page)
{
    return QString::fromUtf8(row(page).symbol);
}

} // namespace orvim
