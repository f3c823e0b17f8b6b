#include "LogTextView.h"

#include "MIDIOutLogStore.h"
#include "controls/JapaneseFont.h"
#include "controls/OncePerTurn.h"

#include <QScrollBar>

namespace orvim {

namespace {

constexpr int fontPixelSize = 14;

} // namespace

LogTextView::LogTextView(MIDIOutLogStore& logStore, QWidget* parent) : QPlainTextEdit(parent), m_logStore(logStore)
{
    setObjectName(QStringLiteral("logText"));
    setAccessibleName(tr("ログ"));
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setBackgroundVisible(false);
    QFont font = japaneseFixedFont();
    font.setPixelSize(fontPixelSize);
    setFont(font);
    // The log is read, not edited: it stands on the window's ground and not on an entry field's.
    viewport()->setBackgroundRole(QPalette::Window);
    m_refresh = new OncePerTurn(this, [this] { showLog(); });
    connect(&m_logStore, &MIDIOutLogStore::textChanged, this, [this] {
        if (isVisible()) m_refresh->request();
    });
}

void LogTextView::showEvent(QShowEvent* event)
{
    QPlainTextEdit::showEvent(event);
    m_refresh->request();
}

void LogTextView::showLog()
{
    const bool isOnlyGrown = m_logStore.removedLineCount() == m_shownRemovedLineCount && m_shownLineCount > 0;
    if (isOnlyGrown && !m_endsInsideLine)
        appendNewLines();
    else
        showWholeLog();
    m_shownRemovedLineCount = m_logStore.removedLineCount();
    m_shownLineCount = m_logStore.lineCount();
    m_endsInsideLine = m_logStore.endsInsideLine();
    verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

void LogTextView::showWholeLog()
{
    setPlainText(m_logStore.text());
}

void LogTextView::appendNewLines()
{
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(m_logStore.textFromLine(m_shownLineCount));
}

} // namespace orvim
