#pragma once

#include "EditorPageHost.h"
#include "PageScaffold.h"
#include "pages/LyricsPageView.h"
#include "pages/LyricsTableView.h"
#include "tests/app/support/LyricsPageTest.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QTest>

namespace orvim::test {

/// The lyrics page in a window that has the focus.
class LyricsPageWindowTest : public LyricsPageTest
{
protected:
    void SetUp() override
    {
        plugged.runtime.setSelectedPage(EditorPage::lyrics);
        window.resize(900, 700);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    void open(const tonavelle::SimpleMIDIFile& song) { actions().load(write(QStringLiteral("song.mid"), song)); }

    LyricsPageView& page() { return *window.findChild<LyricsPageView*>(); }
    LyricsPageActions& actions() { return page().actions(); }
    const LyricsPageState& state() { return actions().state(); }
    LyricsTableView& table() { return *page().findChild<LyricsTableView*>(); }
    LyricsRowID id(std::size_t row) { return state().rows.at(row).id; }
    const tonavelle::LyricsRow& row(std::size_t row) { return state().rows.at(row).lyrics; }

    std::vector<std::string> texts()
    {
        std::vector<std::string> result;
        for (const auto& tableRow : state().rows)
            result.push_back(tableRow.lyrics.text);
        return result;
    }

    QModelIndex cell(int row, LyricsColumn column) { return actions().table().cell(row, column); }
    QPoint middle(int row, LyricsColumn column) { return table().visualRect(cell(row, column)).center(); }
    void click(int row, LyricsColumn column, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(table().viewport(), Qt::LeftButton, modifiers, middle(row, column));
    }
    /// Makes the cell the current one, its row selected, and gives the table the focus.
    void goTo(int row, LyricsColumn column)
    {
        table().setFocus();
        table().setCurrentIndex(cell(row, column));
    }
    bool isAt(int row, LyricsColumn column) { return table().currentIndex() == cell(row, column); }

    /// A key to whatever has the focus, as a keyboard gives it.
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    static void type(const QString& text)
    {
        for (const QChar character : text) // the first one may open an editor, which has the focus then
            QTest::keyClicks(QApplication::focusWidget(), character);
    }
    static void compose(const QString& preedit, const QString& commit = {})
    {
        QInputMethodEvent event(preedit, {});
        if (!commit.isEmpty()) event.setCommitString(commit);
        QApplication::sendEvent(QApplication::focusWidget(), &event);
    }

    /// The field in which a cell is edited at the moment, or null.
    QLineEdit* editor()
    {
        for (auto* const field : table().findChildren<QLineEdit*>(QStringLiteral("lyricsCellEditor")))
            if (field->isVisible()) return field;
        return nullptr;
    }
    /// The menu that stands open over the table, or null.
    QMenu* menu()
    {
        for (auto* const open : table().findChildren<QMenu*>())
            if (open->isVisible()) return open;
        return nullptr;
    }

    EditorPageHost window{plugged.runtime, dialogs};
};

} // namespace orvim::test
