#pragma once

#include "PageScaffold.h"
#include "controls/PreviewPatchListView.h"
#include "pages/ToneEditorPageView.h"
#include "tests/app/support/PluggedRuntime.h"
#include "tests/app/support/RecordingDialogs.h"
#include "tests/support/Bytes.h"

#include <QCoreApplication>
#include <QTabBar>
#include <QTest>

#include <gmock/gmock.h>
#include <stdexcept>

namespace orvim::test {

/// The tone editor in its window, driven by the mouse and the keys.
class ToneEditorPageTest : public testing::Test
{
protected:
    void SetUp() override
    {
        page = new ToneEditorPageView(plugged.runtime, dialogs);
        page->fillHeader(scaffold.header());
        scaffold.setContent(page);
        scaffold.resize(1000, 900);
        scaffold.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&scaffold));
    }

    /// The control of that name on the tab in view.
    template <typename Control>
    Control& control(const QString& name)
    {
        for (auto* const found : page->findChildren<Control*>(name))
            if (found->isVisible()) return *found;
        throw std::runtime_error(name.toStdString());
    }
    template <typename Control>
    Control& control(const char* name)
    {
        return control<Control>(QString::fromUtf8(name));
    }

    QTabBar& tabs() { return *scaffold.findChild<QTabBar*>(QStringLiteral("toneTabs")); }

    void click(ToneEditorTab tab)
    {
        QTest::mouseClick(&tabs(), Qt::LeftButton, {}, tabs().tabRect(static_cast<int>(tab)).center());
        settle();
    }

    void open(ToneEditorTab tab)
    {
        click(tab);
        forget();
    }

    void forget()
    {
        plugged.system.forgetSent();
        plugged.runtime.logStore().clear();
    }

    static void settle()
    {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }

    PreviewPatchListView& list(const char* name) { return control<PreviewPatchListView>(name); }

    ToneEditorActions& actions() { return page->actions(); }
    const ToneEditorState& state() const { return page->actions().state(); }

    PluggedRuntime plugged;
    RecordingDialogs dialogs;
    PageScaffold scaffold{EditorPage::toneEditor};
    ToneEditorPageView* page = nullptr;
};

} // namespace orvim::test
