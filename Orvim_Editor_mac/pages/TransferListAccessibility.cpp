#include "pages/TransferListAccessibility.h"

#include "pages/TransferListRow.h"
#include "pages/TransferListView.h"

#include <QAccessibleWidget>

namespace orvim {

namespace {

/// The toolkit tells of the current and of selected rows by their index, which is that of the child here.
class AccessibleList : public QAccessibleWidget
{
public:
    explicit AccessibleList(TransferListView& list) : QAccessibleWidget(&list, QAccessible::List) {}

    int childCount() const override { return list().count(); }
    QAccessibleInterface* child(int index) const override
    {
        return QAccessible::queryAccessibleInterface(list().itemWidget(list().item(index)));
    }
    int indexOfChild(const QAccessibleInterface* child) const override
    {
        const QObject* const row = child ? child->object() : nullptr;
        return row ? list().row(list().itemOf(row)) : -1;
    }
    QAccessibleInterface* focusChild() const override
    {
        const bool isAtRow = list().hasFocus() && list().currentItem();
        return isAtRow ? child(list().currentRow()) : QAccessibleWidget::focusChild();
    }

private:
    TransferListView& list() const { return static_cast<TransferListView&>(*widget()); }
};

class AccessibleRow : public QAccessibleWidget
{
public:
    explicit AccessibleRow(TransferListRow& row) : QAccessibleWidget(&row, QAccessible::ListItem) {}

    /// The viewport between the row and its list is none of an assistive program's business.
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(list()); }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        const QListWidgetItem* const listItem = item();
        if (!listItem) return state;
        if (widget()->visibleRegion().isEmpty()) state.invisible = true;
        state.selectable = true;
        state.extSelectable = true;
        state.selected = listItem->isSelected();
        state.focusable = true;
        state.focused = list()->hasFocus() && list()->currentItem() == listItem;
        return state;
    }

    QStringList actionNames() const override { return {toggleAction(), setFocusAction()}; }
    void doAction(const QString& name) override
    {
        QListWidgetItem* const listItem = item();
        if (!listItem) return;
        if (name == toggleAction()) listItem->setSelected(!listItem->isSelected());
        if (name != setFocusAction()) return;
        list()->setCurrentItem(listItem, QItemSelectionModel::NoUpdate);
        list()->setFocus();
    }

private:
    TransferListView* list() const { return qobject_cast<TransferListView*>(widget()->parentWidget()->parentWidget()); }
    /// Null where the row was taken out and waits for its end.
    QListWidgetItem* item() const { return list() ? list()->itemOf(widget()) : nullptr; }
};

QAccessibleInterface* makeInterface(const QString&, QObject* object)
{
    if (auto* const list = qobject_cast<TransferListView*>(object)) return new AccessibleList(*list);
    if (auto* const row = qobject_cast<TransferListRow*>(object)) return new AccessibleRow(*row);
    return nullptr;
}

} // namespace

void makeAccessible(TransferListView& list)
{
    static const bool installed = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(installed);
    // While an assistive program listens, the base class has told of itself already and got the toolkit's interface.
    QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(QAccessible::queryAccessibleInterface(&list)));
}

} // namespace orvim
