#include "pages/LyricsPageView.h"

#include "EditorRuntime.h"
#include "PageScaffold.h"
#include "controls/ElidedLabel.h"
#include "controls/ThemeColors.h"
#include "pages/LyricsTableView.h"
#include "platform/InputHold.h"

#include <QDropEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QVBoxLayout>

namespace orvim {

namespace {

constexpr int margin = 14;
constexpr int helpSpacing = 32;
constexpr int helpPadding = 10;
constexpr int highlightWidth = 3;
constexpr int leastRows = 6; ///< that the help leaves room for, the counter and the titles among them

/// Lies over the page while a song is dragged over it.
class DropHighlight : public QWidget
{
public:
    explicit DropHighlight(QWidget* page) : QWidget(page)
    {
        setObjectName(QStringLiteral("dropHighlight"));
        setAttribute(Qt::WA_TransparentForMouseEvents);
        hide();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        QColor color = palette().color(QPalette::Highlight);
        painter.setPen(QPen(color, highlightWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        color.setAlphaF(0.08F);
        painter.setBrush(color);
        constexpr double inset = highlightWidth / 2.0;
        painter.drawRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset));
    }
};

QWidget* makeHelpPart(const QString& title, const QString& text)
{
    auto* const part = new QWidget;
    auto* const layout = new QVBoxLayout(part);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* const titleLabel = new QLabel(title);
    QFont font = titleLabel->font();
    font.setBold(true);
    titleLabel->setFont(font);
    auto* const textLabel = new QLabel(text);
    textLabel->setWordWrap(!text.contains(QLatin1Char('\n')));
    textLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(titleLabel);
    layout->addWidget(textLabel);
    layout->addStretch(1);
    return part;
}

} // namespace

LyricsPageView::LyricsPageView(EditorRuntime& runtime, Dialogs& dialogs)
    : m_actions(runtime.midiOutManager(), runtime.displaySimulator(), dialogs)
{
    setAcceptDrops(true);
    // A preview that waits for its module has all it needs: another song may come meanwhile.
    InputHold::takeDropsAtAllTimes(*this);
    m_counter = new ElidedLabel;
    m_counter->setObjectName(QStringLiteral("counter"));
    m_counter->setElideMode(Qt::ElideMiddle);
    auto* const counterLine = new QHBoxLayout;
    counterLine->setContentsMargins(margin, margin / 2, margin, margin / 2);
    counterLine->addWidget(m_counter);
    m_table = new LyricsTableView(m_actions);
    m_table->setObjectName(QStringLiteral("lyricsTable"));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(counterLine);
    layout->addWidget(m_table, 1);
    m_help = makeHelp();
    layout->addWidget(m_help);
    m_dropHighlight = new DropHighlight(this);

    const auto showHeader = [this] {
        m_counter->setText(m_actions.headerText());
        m_table->setAccessibleName(m_counter->text()); // The counter above is the table's only caption.
    };
    connect(&m_actions, &LyricsPageActions::listChanged, this, showHeader);
    showHeader();
}

LyricsPageView::~LyricsPageView()
{
    // The table looks at the actions to its end.
    delete m_table;
}

QWidget* LyricsPageView::makeHelp()
{
    auto* const help = new QFrame;
    help->setObjectName(QStringLiteral("help"));
    auto* const layout = new QHBoxLayout(help);
    layout->setContentsMargins(margin, helpPadding, margin, helpPadding);
    layout->setSpacing(helpSpacing);
    layout->addWidget(
        makeHelpPart(tr("使い方"), tr("MIDIファイル中の歌詞イベント編集できます。保存時には、歌詞イベントを"
                                      "専用コマンドに置き換えます。")),
        1);
    QWidget* const commands =
        makeHelpPart(tr("専用コマンド"), tr("$ADD_HI$ / $ADD_LO$\n$DEL_HL$ / $DEL_HI$ / $DEL_LO$"));
    commands->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred); // its lines stay as they are
    layout->addWidget(commands);
    return help;
}

LyricsPageView::Action LyricsPageView::committed(const Action& action)
{
    return [this, action] {
        m_table->commitEditing();
        action();
    };
}

void LyricsPageView::fillHeader(EditorPageHeader& header)
{
    fillMenus(header);
    fillToolbar(header);
}

void LyricsPageView::fillMenus(EditorPageHeader& header)
{
    QMenu* const file = header.addMenu(tr("ファイル"));
    file->addAction(tr("MIDIを開く"), QKeySequence(Qt::CTRL | Qt::Key_O), this,
                    committed([this] { m_actions.openByPanel(); }));
    file->addAction(tr("MIDIを保存"), QKeySequence(Qt::CTRL | Qt::Key_S), this,
                    committed([this] { m_actions.save(); }));

    QMenu* const settings = header.addMenu(tr("設定"));
    QAction* const modeOn = settings->addAction(tr("日本語表示モードON SysEx追加"));
    modeOn->setCheckable(true);
    modeOn->setChecked(m_actions.state().addJapaneseModeOn);
    connect(modeOn, &QAction::toggled, &m_actions, &LyricsPageActions::setAddJapaneseModeOn);

    QMenu* const edit = header.addMenu(tr("操作"));
    edit->addAction(tr("挿入"), this, committed([this] { m_actions.insert(); }));
    edit->addAction(tr("削除"), this, committed([this] { m_actions.deleteSelected(); }));
    edit->addSeparator();
    for (const bool on : {true, false}) {
        const QString label = on ? tr("日本語表示ON") : tr("日本語表示OFF");
        edit->addAction(label, this, committed([this, on, label] { m_actions.setJapaneseMode(on, label); }));
    }
}

void LyricsPageView::fillToolbar(EditorPageHeader& header)
{
    const auto add = [&](const QString& title, const char* symbol, const Action& action) {
        connect(header.addToolbarButton(title, QString::fromUtf8(symbol)), &EditorToolbarButton::clicked, this,
                committed(action));
    };
    add(tr("開く"), "folder", [this] { m_actions.openByPanel(); });
    add(tr("保存"), "square.and.arrow.down", [this] { m_actions.save(); });
    add(tr("挿入"), "plus", [this] { m_actions.insert(); });
    add(tr("削除"), "minus", [this] { m_actions.deleteSelected(); });
    for (const bool on : {true, false}) {
        const QString label = on ? tr("日本語オン") : tr("日本語オフ");
        add(label, "text.bubble", [this, on, label] { m_actions.setJapaneseMode(on, label); });
    }
}

void LyricsPageView::dragEnterEvent(QDragEnterEvent* event)
{
    if (!event->mimeData()->hasUrls()) return event->ignore();
    // The files stay where they are, whatever the other program offers.
    event->setDropAction(Qt::CopyAction);
    event->accept();
    m_dropHighlight->setVisible(LyricsPageActions::takes(event->mimeData()->urls()));
    m_dropHighlight->raise();
}

void LyricsPageView::dragLeaveEvent(QDragLeaveEvent*)
{
    m_dropHighlight->hide();
}

void LyricsPageView::dropEvent(QDropEvent* event)
{
    m_dropHighlight->hide();
    if (!event->mimeData()->hasUrls()) return event->ignore();
    event->setDropAction(Qt::CopyAction);
    event->accept();
    const auto urls = event->mimeData()->urls();
    if (!LyricsPageActions::takes(urls)) return;
    // The other program waits for the end of the drop, so the song is opened behind it.
    QMetaObject::invokeMethod(this, committed([this, urls] { m_actions.openDropped(urls); }), Qt::QueuedConnection);
}

void LyricsPageView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    m_dropHighlight->setGeometry(rect());
    // In a low window the rows come first.
    const int leastTableHeight = leastRows * m_table->verticalHeader()->defaultSectionSize();
    m_help->setVisible(height() - m_help->layout()->totalHeightForWidth(width()) >= leastTableHeight);
}

} // namespace orvim
