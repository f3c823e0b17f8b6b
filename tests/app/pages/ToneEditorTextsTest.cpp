#include "controls/SegmentedPicker.h"
#include "tests/app/support/ToneEditorPageTest.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTemporaryDir>

namespace orvim {
namespace {

QStringList texts(std::initializer_list<const char*> list)
{
    QStringList result;
    for (const char* const text : list)
        result << QString::fromUtf8(text);
    return result;
}

/// The words of the page, and what stands under which.
class ToneEditorTextsTest : public test::ToneEditorPageTest
{
protected:
    QMenu& menu(const char* title)
    {
        return *scaffold.header().findChild<QPushButton*>(QString::fromUtf8(title))->menu();
    }

    static QStringList entries(const QMenu& menu)
    {
        QStringList result;
        for (const QAction* const action : menu.actions())
            if (!action->isSeparator()) result << action->text();
        return result;
    }

    void trigger(const char* title, const char* entry)
    {
        for (QAction* const action : menu(title).actions())
            if (action->text() == QString::fromUtf8(entry)) return action->trigger();
        ADD_FAILURE() << entry;
    }

    void pressToolbar(const char* title)
    {
        for (auto* const button : scaffold.header().findChildren<EditorToolbarButton*>())
            if (button->text() == QString::fromUtf8(title)) QTest::mouseClick(button, Qt::LeftButton);
    }

    /// The boxes in view, each title followed by its captions.
    QStringList boxes()
    {
        QStringList result;
        for (const auto* const box : scaffold.findChildren<QGroupBox*>()) {
            if (!box->isVisible()) continue;
            result << QStringLiteral("[%1]").arg(box->title());
            for (const auto* const label : box->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly))
                result << label->text();
        }
        return result;
    }

    QStringList headings()
    {
        QStringList result;
        for (const auto* const label : page->findChildren<QLabel*>())
            if (label->isVisible() && label->font().bold()) result << label->text();
        return result;
    }

    QString logged() const { return plugged.log().trimmed(); }
};

TEST_F(ToneEditorTextsTest, TheToolbarHasFourButtonsThatAct)
{
    QStringList titles;
    for (const auto* const button : scaffold.header().findChildren<EditorToolbarButton*>())
        titles << button->text();
    EXPECT_EQ(titles, texts({"新規", "開く", "保存", "全送信"}));
    pressToolbar("新規");
    EXPECT_EQ(logged(), QStringLiteral("音色データの新規作成をキャンセルしました。"));
    forget();
    pressToolbar("開く");
    EXPECT_EQ(logged(), QStringLiteral("音色データ読込をキャンセルしました。"));
    forget();
    pressToolbar("保存");
    EXPECT_EQ(logged(), QStringLiteral("音色データ保存をキャンセルしました。"));
    pressToolbar("全送信");
    EXPECT_EQ(plugged.sent().size(), 2'365U);
}

TEST_F(ToneEditorTextsTest, TheMenusHaveTheirEntries)
{
    QStringList titles;
    for (const auto* const button : scaffold.header().findChildren<QPushButton*>())
        if (button->menu()) titles << button->text();
    EXPECT_EQ(titles, texts({"ファイル", "設定", "送信"}));
    EXPECT_EQ(entries(menu("ファイル")),
              texts({"新規作成", "開く", "保存", "ユーザー波形のインポート", "ユーザー波形のエクスポート"}));
    EXPECT_EQ(entries(menu("設定")),
              texts({"編集箇所のみ書き出し（ユーザー楽器）", "編集箇所のみ書き出し（ユーザードラム）",
                     "編集箇所のみ書き出し（ユーザー波形）"}));
    EXPECT_EQ(entries(menu("送信")), texts({"全音色データ送信", "ユーザー波形 1 送信", "ユーザー波形 2 送信",
                                            "ユーザー波形 3 送信", "ユーザー波形 4 送信"}));
}

TEST_F(ToneEditorTextsTest, TheEntriesOfTheFileMenuAct)
{
    const std::array<std::pair<const char*, const char*>, 5> reports{{
        {"新規作成", "音色データの新規作成をキャンセルしました。"},
        {"開く", "音色データ読込をキャンセルしました。"},
        {"保存", "音色データ保存をキャンセルしました。"},
        {"ユーザー波形のインポート", "WAV読み込みをキャンセルしました。"},
        {"ユーザー波形のエクスポート", "WAV保存をキャンセルしました。"},
    }};
    for (const auto& [entry, report] : reports) {
        forget();
        trigger("ファイル", entry);
        EXPECT_EQ(logged(), QString::fromUtf8(report));
    }
}

TEST_F(ToneEditorTextsTest, TheEntriesOfTheSendMenuAct)
{
    trigger("送信", "全音色データ送信");
    EXPECT_EQ(plugged.sent().size(), 2'365U);
    for (int slot = 0; slot < 4; ++slot) {
        forget();
        trigger("送信", QStringLiteral("ユーザー波形 %1 送信").arg(slot + 1).toUtf8().constData());
        const auto sent = plugged.sent();
        ASSERT_EQ(sent.size(), 128U);
        EXPECT_EQ(sent[0][6], slot);
        EXPECT_EQ(state().selectedUserWave, slot);
    }
}

TEST_F(ToneEditorTextsTest, TheOptionsHaveTheirHelpAndToggleTheirFlag)
{
    struct Option {
        const char* help;
        bool tonavelle::DirtyOnlyFlags::*flag;
    };
    // clang-format off
    const std::array<Option, 3> options{{
        {"MIDIファイル生成時、ユーザー楽器をデフォルトから変更された番号だけ書き出します。OFFの場合は128個すべてを書き出します。",
         &tonavelle::DirtyOnlyFlags::writesDirtyUserMelodyOnly},
        {"MIDIファイル生成時、ユーザードラムをデフォルトから変更されたノートだけ書き出します。OFFの場合は128ノートすべてを書き出します。",
         &tonavelle::DirtyOnlyFlags::writesDirtyUserDrumOnly},
        {"MIDIファイル生成時、ユーザー波形をデフォルトから変更されたスロットだけ書き出します。OFFの場合は4スロットすべてを書き出します。",
         &tonavelle::DirtyOnlyFlags::writesDirtyUserWaveOnly},
    }};
    // clang-format on
    for (std::size_t i = 0; i < options.size(); ++i) {
        QAction& action = *menu("設定").actions()[static_cast<qsizetype>(i)];
        EXPECT_EQ(action.toolTip(), QString::fromUtf8(options[i].help));
        EXPECT_TRUE(action.isChecked());
        action.trigger();
        tonavelle::DirtyOnlyFlags expected;
        expected.*options[i].flag = false;
        EXPECT_EQ(state().dirtyOnly, expected);
        action.trigger();
        EXPECT_EQ(state().dirtyOnly, tonavelle::DirtyOnlyFlags());
    }
}

TEST_F(ToneEditorTextsTest, TheMasterTabHasItsFourSections)
{
    EXPECT_EQ(boxes(), texts({"[リバーブ]", "Reverb Type", "[コーラス]", "Chorus Depth", "Chorus Freq", "[ディレイ]",
                              "Delay Time", "Delay Feedback Gain", "[マスターボリューム]", "Master Volume"}));
}

TEST_F(ToneEditorTextsTest, TheChannelTabHasItsGroupsInOrder)
{
    open(ToneEditorTab::channel);
    EXPECT_EQ(headings(), texts({"チャンネル", "ボイス編集", "チャンネル設定"}));
    EXPECT_EQ(boxes(), texts({"[オシレータ1・2]",
                              "Wave Type",
                              "Wave Num",
                              "Ringmod Multiply",
                              "Ringmod Gain",
                              "[ADSR]",
                              "Attack Time",
                              "Decay Time",
                              "Sustain Level",
                              "Sustain Rate",
                              "Release Time",
                              "Release Active",
                              "[スイープ]",
                              "Sweep Type",
                              "Sweep Speed",
                              "[音の大きさ]",
                              "Output Gain",
                              "[]",
                              "Drum Track Set",
                              "Bank",
                              "[音色リスト]",
                              "[エフェクトセンド]",
                              "Reverb",
                              "Chorus",
                              "Delay",
                              "[ディストーション]",
                              "Dist Type",
                              "Dist Level",
                              "Dist Gain",
                              "[フィルター]",
                              "Cut Off",
                              "Resonance",
                              "[ユニゾン]",
                              "Unison Num",
                              "Unison Detune",
                              "[音量・定位]",
                              "Volume",
                              "Expression",
                              "Panpot",
                              "[ピッチ]",
                              "Vibrato Rate",
                              "PB Sensitivity",
                              "Fine Tuning",
                              "Coarse Tuning"}));
}

TEST_F(ToneEditorTextsTest, EachChoiceHasItsName)
{
    const auto buttons = [this](const char* name) {
        QStringList titles;
        for (const auto* const button : control<SegmentedPicker>(name).findChildren<QAbstractButton*>())
            titles << button->text();
        return titles;
    };
    const auto rows = [this](const char* name) {
        QStringList titles;
        for (int row = 0; row < control<QComboBox>(name).count(); ++row)
            titles << control<QComboBox>(name).itemText(row);
        return titles;
    };
    EXPECT_EQ(buttons("Reverb Type"), texts({"Normal", "Hall", "Room"}));
    open(ToneEditorTab::channel);
    EXPECT_EQ(buttons("Drum Track Set"), texts({"Melody", "Drum"}));
    EXPECT_EQ(buttons("Bank"), texts({"Preset", "User"}));
    EXPECT_EQ(buttons("Dist Type"), texts({"OFF", "Hard Clip", "Soft Clip", "Assym"}));
    EXPECT_EQ(rows("Wave Type"), texts({"SINE", "SQUARE", "TRIANGLE", "SAW", "WHITE NOISE", "PINK NOISE", "PCM",
                                        "PCM Reverse", "User Wave 1", "User Wave 2", "User Wave 3", "User Wave 4"}));
    EXPECT_EQ(rows("Sweep Type"), texts({"UP", "DOWN", "NONE"}));
}

} // namespace
} // namespace orvim
