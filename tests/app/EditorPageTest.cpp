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
    EXPECT_EQ(rawValue(EditorPage::command), QStringLiteral("command"));
    EXPECT_EQ(rawValue(EditorPage::displaySimulatorSettings), QStringLiteral("displaySimulatorSettings"));
}

} // namespace
} // namespace orvim
