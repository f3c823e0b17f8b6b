#include "pages/ToneEditorTabView.h"

#include "controls/OncePerTurn.h"
#include "controls/PageScrollArea.h"
#include "controls/PreviewPatchListView.h"
#include "pages/ToneEditorActions.h"

#include <QLabel>
#include <QVBoxLayout>

namespace orvim {

namespace {

constexpr int tabMargin = 12;
constexpr int spacing = 10;
constexpr int captionSpacing = 4;
constexpr int mostControlsWidth = 1080; ///< longer sliders would only be further to reach

QLabel* makeHeading(const QString& text)
{
    auto* const heading = new QLabel(text);
    QFont font = heading->font();
    font.setBold(true);
    heading->setFont(font);
    return heading;
}

} // namespace

ToneEditorTabView::ToneEditorTabView(ToneEditorActions& actions, ToneEditorParts followed, QWidget* parent)
    : QWidget(parent), m_actions(actions), m_refresh(new OncePerTurn(
                                               this, [this] { showState(); }, OncePerTurn::Latest::beforeInput))
{
    connect(&actions.model, &ToneEditorModel::changed, this, [this, followed](ToneEditorParts parts) {
        if (parts & followed) m_refresh->request();
    });
}

const ToneEditorState& ToneEditorTabView::state() const
{
    return m_actions.state();
}

void ToneEditorTabView::setContent(const QString& listCaption, PreviewPatchListView* list, QWidget* controls)
{
    list->setObjectName(listCaption);
    list->setAccessibleName(listCaption);
    auto* const listColumn = new QVBoxLayout;
    listColumn->setContentsMargins(tabMargin, tabMargin, 0, tabMargin);
    listColumn->setSpacing(captionSpacing);
    listColumn->addWidget(makeHeading(listCaption));
    listColumn->addWidget(list, 1);
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(listColumn);
    addControls(*layout, controls);
}

void ToneEditorTabView::setContent(QWidget* controls)
{
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    addControls(*layout, controls);
}

void ToneEditorTabView::addControls(QBoxLayout& layout, QWidget* controls)
{
    controls->setMaximumWidth(mostControlsWidth);
    auto* const ground = new QWidget;
    auto* const column = new QHBoxLayout(ground);
    column->setContentsMargins(tabMargin, tabMargin, tabMargin, tabMargin);
    column->addWidget(controls);
    auto* const scrollArea = new PageScrollArea(Scrollbars::permanent);
    scrollArea->setWidget(ground);
    layout.addWidget(scrollArea, 1);
}

QWidget* makeToneColumn(const QString& heading, const QList<QWidget*>& boxes)
{
    auto* const column = new QWidget;
    auto* const layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spacing);
    if (!heading.isEmpty()) layout->addWidget(makeHeading(heading));
    for (QWidget* const box : boxes)
        layout->addWidget(box);
    layout->addStretch(1);
    return column;
}

} // namespace orvim
