#include "LogWindowView.h"

#include "EditorRuntime.h"
#include "LogTextView.h"
#include "MIDIOutLogStore.h"
#include "MIDIOutManager.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QCloseEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <array>
#include <utility>

namespace orvim {

namespace {

constexpr QSize defaultSize(380, 500);
constexpr int titlePixelSize = 15;

constexpr std::array<std::pair<LogByteFormat, const char*>, 3> formatTitles{{
    {LogByteFormat::suffixH, "00H表記"},
    {LogByteFormat::prefix0x, "0x00表記"},
    {LogByteFormat::none, "なし"},
}};

} // namespace

LogWindowView::LogWindowView(EditorRuntime& runtime, QWidget* parent) : QWidget(parent, Qt::Window), m_runtime(runtime)
{
    setWindowTitle(QStringLiteral("Log Window"));
    setObjectName(QStringLiteral("log-window"));
    makeWidgets();
    connectStore();
    showFormat();
    resize(defaultSize);
}

void LogWindowView::makeWidgets()
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(10, 10, 10, 10);
    layout->setSpacing(8);

    auto* const title = new QLabel(windowTitle(), this);
    QFont font = title->font();
    font.setPixelSize(titlePixelSize);
    font.setBold(true);
    title->setFont(font);
    layout->addWidget(title);

    m_text = new LogTextView(m_runtime.logStore(), this);
    layout->addWidget(m_text, 1);
    layout->addWidget(makeFormatPicker());

    m_usesComma = new QCheckBox(tr("カンマ区切り"), this);
    m_usesComma->setObjectName(m_usesComma->text());
    m_restrictLineCount = new QCheckBox(tr("ログ行数制限"), this);
    m_restrictLineCount->setObjectName(m_restrictLineCount->text());
    m_restrictLineCount->setToolTip(tr("ログの行数を300行に制限する。制限を外すとメモリ使用量が増える。"));
    auto* const clearButton = new QPushButton(tr("ログ消去"), this);
    clearButton->setObjectName(QStringLiteral("clearLog"));
    connect(clearButton, &QPushButton::clicked, this, &LogWindowView::clearLog);

    auto* const options = new QHBoxLayout;
    options->addWidget(m_usesComma);
    options->addWidget(m_restrictLineCount);
    options->addStretch(1);
    options->addWidget(clearButton);
    layout->addLayout(options);
}

QWidget* LogWindowView::makeFormatPicker()
{
    auto* const row = new QWidget(this);
    row->setAccessibleName(tr("バイトの表記"));
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    m_formatPicker = new QButtonGroup(this);
    for (const auto& [format, title] : formatTitles) {
        auto* const button = new QRadioButton(QString::fromUtf8(title), row);
        button->setObjectName(button->text());
        m_formatPicker->addButton(button, static_cast<int>(format));
        layout->addWidget(button);
    }
    layout->addStretch(1);
    return row;
}

void LogWindowView::connectStore()
{
    MIDIOutLogStore& store = m_runtime.logStore();
    connect(m_formatPicker, &QButtonGroup::idClicked, this,
            [&store](int id) { store.setByteFormat(static_cast<LogByteFormat>(id)); });
    connect(m_usesComma, &QCheckBox::toggled, this, [&store](bool on) { store.setUsesComma(on); });
    connect(m_restrictLineCount, &QCheckBox::toggled, this, [&store](bool on) { store.setRestrictLineCount(on); });
    connect(&store, &MIDIOutLogStore::formatChanged, this, &LogWindowView::showFormat);
}

void LogWindowView::showFormat()
{
    const MIDIOutLogStore& store = m_runtime.logStore();
    m_formatPicker->button(static_cast<int>(store.byteFormat()))->setChecked(true);
    m_usesComma->setChecked(store.usesComma());
    m_restrictLineCount->setChecked(store.restrictLineCount());
}

void LogWindowView::clearLog()
{
    m_runtime.logStore().clear();
    m_runtime.midiOutManager().setStatus(tr("ログを消去しました。"), false);
}

void LogWindowView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!event->spontaneous()) m_runtime.setLogWindowIsVisible(true);
}

void LogWindowView::closeEvent(QCloseEvent* event)
{
    QWidget::closeEvent(event);
    if (event->isAccepted()) m_runtime.setLogWindowIsVisible(false);
}

} // namespace orvim
