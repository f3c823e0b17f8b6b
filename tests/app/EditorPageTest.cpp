#include "EditorPage.h"

#include <gtest/gtest.h>

namespace orvim {
namespace {

TEST(EditorPage, PagesStandInTheOrderOfTheSidebar)
{
    QStringList titles;
    for (const EditorPage page : allEditorPages)
        titles << title(page);
    const QStringList expected{
        QStringLiteral("音源制御コマンド"),     QStringLiteral("音色エディタ"), QStringLiteral("画像転送"),
        QStringLiteral("サンプリング音声転送"), QStringLiteral("歌詞編集"),     QStringLiteral("情報"),
        QStringLiteral("画面シミュレータ設定"),
    };
    EXPECT_EQ(titles, expected);
}

TEST(EditorPage, RawValueIsTheNameOfTheCase)
{
    QStringList names;
    for (const EditorPage page : allEditorPages)
        names << rawValue(page);
    const QStringList expected{
        QStringLiteral("command"),
        QStringLiteral("toneEditor"),
        QStringLiteral("imageTransfer"),
        QStringLiteral("samplingSound"),
        QStringLiteral("lyrics"),
        QStringLiteral("information"),
        QStringLiteral("displaySimulatorSettings"),
    };
    EXPECT_EQ(names, expected);
}

TEST(EditorPage, EachPageHasItsSymbol)
{
    QStringList symbols;
    for (const EditorPage page : allEditorPages)
        symbols << symbol(page);
    const QStringList expected{
        QStringLiteral("terminal"),  QStringLiteral("slider.horizontal.3"), QStringLiteral("photo"),
        QStringLiteral("waveform"),  QStringLiteral("text.quote"),          QStringLiteral("info.circle"),
        QStringLiteral("gearshape"),
    };
    EXPECT_EQ(symbols, expected);
}

} // namespace
} // namespace orvim
