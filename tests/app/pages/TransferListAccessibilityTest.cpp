// What an assistive program finds of the list.

#include "pages/TransferListRow.h"
#include "tests/app/support/TransferPageTest.h"

#include <QAccessible>

namespace orvim {
namespace {

/// Finds the interfaces of the list of whichever page.
template <typename Page>
class TransferListAccessibilityTest : public Page
{
protected:
    QAccessibleInterface& all() { return *QAccessible::queryAccessibleInterface(&this->list()); }
    QAccessibleInterface& row(int index) { return *all().child(index); }
    QAccessibleInterface* button(int index)
    {
        for (int i = 0; i < row(index).childCount(); ++i)
            if (row(index).child(i)->role() == QAccessible::Button) return row(index).child(i);
        return nullptr;
    }
    QString name(int index) { return row(index).text(QAccessible::Name); }

    /// The list's children are its rows, and everything under it names the parent that names it.
    void expectTree(int rows)
    {
        ASSERT_EQ(all().childCount(), rows);
        for (int index = 0; index < rows; ++index) {
            EXPECT_EQ(row(index).object(), &this->rowAt(index));
            EXPECT_EQ(row(index).role(), QAccessible::ListItem);
            EXPECT_EQ(row(index).parent(), &all());
            EXPECT_EQ(all().indexOfChild(&row(index)), index);
            for (int i = 0; i < row(index).childCount(); ++i) {
                EXPECT_EQ(row(index).child(i)->parent(), &row(index));
                EXPECT_EQ(row(index).indexOfChild(row(index).child(i)), i);
            }
        }
        EXPECT_EQ(all().child(rows), nullptr);
        EXPECT_EQ(all().child(-1), nullptr);
    }
};

using ImageTransferListAccessibilityTest = TransferListAccessibilityTest<test::ImageTransferPageTest>;
using SoundTransferListAccessibilityTest = TransferListAccessibilityTest<test::SoundTransferPageTest>;

TEST_F(ImageTransferListAccessibilityTest, UnderTheListIsEachRowWithItsButton)
{
    addPictures(3);
    EXPECT_EQ(all().role(), QAccessible::List);
    EXPECT_EQ(all().text(QAccessible::Name), counter());
    expectTree(3);
    EXPECT_EQ(name(2), QStringLiteral("02 ") + folder.filePath(QStringLiteral("2.png")));
    ASSERT_NE(button(2), nullptr);
    EXPECT_EQ(button(2)->text(QAccessible::Name), QStringLiteral("実機で表示"));
    button(2)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(QTest::qWaitFor([&] { return plugged.screen().arbitraryImageRGB == items()[2].rgb888; }));
}

TEST_F(SoundTransferListAccessibilityTest, ASoundTellsItsLengthAndItsButtonPlaysIt)
{
    actions().registerFiles({sound(QStringLiteral("a.wav"), 0.1), sound(QStringLiteral("b.wav"), 0.2)});
    expectTree(2);
    ASSERT_NE(button(1), nullptr);
    EXPECT_EQ(button(1)->text(QAccessible::Name), QStringLiteral("実機で再生"));
    const int beforeButton = row(1).indexOfChild(button(1)) - 1;
    EXPECT_EQ(row(1).child(beforeButton)->text(QAccessible::Name), QStringLiteral("0.20 sec"));
    button(1)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !sentSections().empty(); }));
}

TEST_F(ImageTransferListAccessibilityTest, RowsThatGoLeaveNothingAndTheOthersAreNumberedAnew)
{
    addPictures(4);
    expectTree(4);
    const QAccessible::Id gone = QAccessible::uniqueId(&row(1));
    QAccessibleInterface& taken = row(1);
    actions().deleteOne(items()[1].id);
    EXPECT_EQ(all().indexOfChild(&taken), -1);
    EXPECT_FALSE(taken.state().selectable);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(QAccessible::accessibleInterface(gone), nullptr);
    expectTree(3);
    EXPECT_EQ(name(1), QStringLiteral("01 ") + folder.filePath(QStringLiteral("2.png")));
    EXPECT_EQ(button(1)->text(QAccessible::Description), name(1));
    addPictures(1);
    expectTree(4);
    dialogs.answer = true;
    actions().clear();
    expectTree(0);
}

TEST_F(ImageTransferListAccessibilityTest, ARowTellsWhetherItIsSelectedHasTheFocusAndIsSeen)
{
    addPictures(32);
    list().setFocus();
    list().setCurrentRow(0);
    list().setCurrentRow(1, QItemSelectionModel::NoUpdate);
    EXPECT_TRUE(row(0).state().selected);
    EXPECT_FALSE(row(0).state().focused);
    EXPECT_FALSE(row(0).state().invisible);
    EXPECT_FALSE(row(1).state().selected);
    EXPECT_TRUE(row(1).state().focused);
    EXPECT_EQ(all().focusChild(), &row(1));
    EXPECT_TRUE(row(31).state().selectable);
    EXPECT_TRUE(row(31).state().focusable);
    EXPECT_TRUE(row(31).state().invisible);

    buttonAt(1).setFocus();
    EXPECT_FALSE(row(1).state().focused);
    EXPECT_TRUE(button(1)->state().focused);
    EXPECT_EQ(all().focusChild(), button(1));
}

TEST_F(ImageTransferListAccessibilityTest, ARowCanBeSelectedAndGivenTheFocus)
{
    addPictures(32);
    const auto run = [this](int index, const QString& action) {
        EXPECT_TRUE(row(index).actionInterface()->actionNames().contains(action));
        row(index).actionInterface()->doAction(action);
    };
    run(2, QAccessibleActionInterface::toggleAction());
    run(31, QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(actions().selectedItemIDs(), (QSet<QUuid>{items()[2].id, items()[31].id}));
    run(2, QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(actions().selectedItemIDs(), QSet<QUuid>{items()[31].id});
    run(30, QAccessibleActionInterface::setFocusAction());
    EXPECT_TRUE(list().hasFocus());
    EXPECT_EQ(list().currentRow(), 30);
    EXPECT_FALSE(row(30).state().invisible);
    EXPECT_EQ(actions().selectedItemIDs(), QSet<QUuid>{items()[31].id});
}

TEST_F(ImageTransferListAccessibilityTest, AnEventOfTheListNamesTheRowWithItsIndex)
{
    addPictures(3);
    QAccessibleEvent event(&list(), QAccessible::Focus);
    event.setChild(2);
    EXPECT_EQ(event.accessibleInterface(), &row(2));
}

} // namespace
} // namespace orvim
