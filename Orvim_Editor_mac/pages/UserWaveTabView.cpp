#include "pages/UserWaveTabView.h"

#include "controls/ElidedButton.h"
#include "controls/PreviewPatchListView.h"
#include "controls/ThemeColors.h"
#include "controls/UserWaveformEditorView.h"
#include "controls/ValidatedTextField.h"
#include "pages/FormulaHelpView.h"
#include "pages/ToneEditorActions.h"
#include "pages/ToneParameterControls.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include <array>

namespace orvim {

namespace UserWaveformBuilder = tonavelle::UserWaveformBuilder;

namespace {

constexpr int listWidth = 170;
constexpr int spacing = 8;
constexpr std::array<const char*, UserWaveformBuilder::buttonFormulas.size()> shapeTitles{"SIN", "SAW", "Square",
                                                                                          "Triangle", "Flat"};

QStringList slotNames()
{
    QStringList names;
    for (int slot = 1; slot <= UserWaveformBuilder::slotCount; ++slot)
        names << QStringLiteral("User Wave %1").arg(slot);
    return names;
}

QPushButton* makeButton(const QString& title)
{
    auto* const button = new QPushButton(title);
    button->setObjectName(title);
    return button;
}

/// Tells those who hear the page what stands beside the control.
void describe(QWidget& control, const QString& text)
{
    if (control.accessibleDescription() != text) control.setAccessibleDescription(text);
}

void addRow(QGroupBox& group, QLayout* row)
{
    static_cast<QVBoxLayout*>(group.layout())->addLayout(row);
}

} // namespace

UserWaveTabView::UserWaveTabView(ToneEditorActions& actions, QWidget* parent)
    : ToneEditorTabView(actions, ToneEditorPart::userWave | ToneEditorPart::help, parent),
      m_list(new PreviewPatchListView), m_help(new FormulaHelpView(this))
{
    setContent(tr("ユーザー波形スロット"), m_list,
               makeToneColumn({}, {makeEditorGroup(), makeFormulaGroup(), makeSampleGroup()}));
    makeList();
    connect(m_help, &FormulaHelpView::closed, this, [this] { this->actions().waves.presentFormulaHelp(false); });
    showState();
}

void UserWaveTabView::makeList()
{
    m_list->setFixedWidth(listWidth);
    m_list->setItems(slotNames());
    connect(m_list, &PreviewPatchListView::rowSelected, this, [this](int row) { actions().waves.selectUserWave(row); });
    connect(m_list, &PreviewPatchListView::rowReached, this, [this] { actions().previews.followSelection(); });
    connect(m_list, &PreviewPatchListView::rowPressed, this,
            [this](int row) { actions().previews.pressUserWave(row); });
    connect(m_list, &PreviewPatchListView::rowReleased, this, [this] { actions().previews.releaseUserWave(); });
}

QGroupBox* UserWaveTabView::makeEditorGroup()
{
    QGroupBox* const group = makeToneGroup(tr("波形エディタ"));
    static_cast<QVBoxLayout*>(group->layout())->setSpacing(spacing);
    m_editor = new UserWaveformEditorView;
    connect(m_editor, &UserWaveformEditorView::edited, this,
            [this](const tonavelle::UserWaveform& samples) { actions().waves.setSamples(m_shownSlot, samples); });
    connect(m_editor, &UserWaveformEditorView::undoRequested, this, [this] { actions().waves.undo(); });
    group->layout()->addWidget(m_editor);
    addRow(*group, makeShapeButtons());
    addRow(*group, makeOperationButtons());
    addRow(*group, makeSendRow());
    return group;
}

QLayout* UserWaveTabView::makeShapeButtons()
{
    auto* const buttons = new QHBoxLayout;
    buttons->setSpacing(spacing);
    for (std::size_t shape = 0; shape < shapeTitles.size(); ++shape) {
        QPushButton* const button = makeButton(QString::fromUtf8(shapeTitles[shape]));
        connect(button, &QPushButton::clicked, this,
                [this, shape] { actions().waves.chooseFormula(fromCore(UserWaveformBuilder::buttonFormulas[shape])); });
        buttons->addWidget(button);
    }
    buttons->addStretch(1);
    return buttons;
}

QLayout* UserWaveTabView::makeOperationButtons()
{
    auto* const buttons = new QHBoxLayout;
    buttons->setSpacing(spacing);
    for (const WaveOperation& operation : waveOperations) {
        QPushButton* const button = makeButton(QString::fromUtf8(operation.title));
        connect(button, &QPushButton::clicked, this, [this, &operation] { actions().waves.apply(operation); });
        buttons->addWidget(button);
    }
    buttons->addStretch(1);
    return buttons;
}

QLayout* UserWaveTabView::makeSendRow()
{
    auto* const row = new QHBoxLayout;
    row->setSpacing(spacing);
    QPushButton* const load = makeButton(tr("WAV読込"));
    connect(load, &QPushButton::clicked, this, [this] { actions().files.importWAV(); });
    QPushButton* const store = makeButton(tr("WAV保存"));
    connect(store, &QPushButton::clicked, this, [this] { actions().files.exportWAV(); });
    m_unsentMark = new QLabel(tr("未送信"));
    m_unsentMark->setObjectName(QStringLiteral("unsent"));
    QFont bold = m_unsentMark->font();
    bold.setBold(true);
    m_unsentMark->setFont(bold);
    m_send = makeButton(tr("送信"));
    connect(m_send, &QPushButton::clicked, this, [this] { actions().waves.send(state().selectedUserWave); });
    row->addWidget(load);
    row->addWidget(store);
    row->addStretch(1);
    row->addWidget(m_unsentMark);
    row->addWidget(m_send);
    return row;
}

QGroupBox* UserWaveTabView::makeFormulaGroup()
{
    const QString caption = tr("数式入力");
    QGroupBox* const group = makeToneGroup(caption);
    m_formula = new ValidatedTextField([](const QString& text) { return text; });
    m_formula->setObjectName(caption);
    m_formula->setAccessibleName(caption);
    m_formula->setPlaceholderText(tr("tの式を入力してEnter"));
    connect(m_formula, &ValidatedTextField::textCommitted, this,
            [this](const QString& formula) { actions().waves.typeFormula(formula); });
    connect(m_formula, &QLineEdit::returnPressed, this, [this] { actions().waves.evaluateFormula(); });

    m_helpButton = new QToolButton;
    m_helpButton->setText(QStringLiteral("?"));
    m_helpButton->setObjectName(QStringLiteral("formulaHelpButton"));
    m_helpButton->setAccessibleName(tr("数式のヘルプ"));
    m_helpButton->setToolTip(tr("数式のヘルプ"));
    m_helpButton->setFocusPolicy(Qt::StrongFocus);
    connect(m_helpButton, &QToolButton::clicked, this, [this] { actions().waves.presentFormulaHelp(true); });

    m_formulaStatus = new QLabel;
    m_formulaStatus->setObjectName(QStringLiteral("formulaStatus"));
    m_formulaStatus->setAccessibleName(tr("数式の状態"));
    m_formulaStatus->setMinimumWidth(m_formulaStatus->fontMetrics().horizontalAdvance(tr("数値形式エラー")));
    auto* const row = new QHBoxLayout;
    row->setSpacing(spacing);
    row->addWidget(m_formula, 1);
    row->addWidget(m_helpButton);
    row->addWidget(m_formulaStatus);
    addRow(*group, row);
    return group;
}

QGroupBox* UserWaveTabView::makeSampleGroup()
{
    QGroupBox* const group = makeToneGroup(tr("数式サンプル"));
    for (const std::string_view sample : UserWaveformBuilder::formulaSamples) {
        const QString formula = fromCore(sample);
        auto* const button = new ElidedButton(formula);
        button->setObjectName(formula);
        button->setStyleSheet(QStringLiteral("text-align: left; padding: 4px 10px;"));
        connect(button, &QPushButton::clicked, this, [this, formula] { actions().waves.chooseFormula(formula); });
        group->layout()->addWidget(button);
    }
    return group;
}

void UserWaveTabView::showState()
{
    const ToneEditorState& present = state();
    m_list->setSelectedIndex(present.selectedUserWave);
    // A stroke belongs to the slot on which it began.
    if (present.selectedUserWave != m_shownSlot) m_editor->endEditing();
    m_shownSlot = present.selectedUserWave;
    m_editor->setSamples(present.userWave());
    // The mark keeps its room, so that the button stays where it is.
    m_unsentMark->setText(present.isUserWaveUnsent() ? tr("未送信") : QString());
    describe(*m_send, m_unsentMark->text());
    m_formula->setBoundText(present.userWaveFormula);
    const bool isGood = present.userWaveFormulaStatus == QString::fromUtf8(goodFormulaStatus);
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, isGood ? successColor(palette()) : errorColor(palette()));
    m_formulaStatus->setPalette(colors);
    m_formulaStatus->setText(present.userWaveFormulaStatus);
    describe(*m_formula, present.userWaveFormulaStatus);
    if (present.isUserWaveFormulaHelpPresented != m_help->isVisible()) showHelp();
}

void UserWaveTabView::showHelp()
{
    if (state().isUserWaveFormulaHelpPresented)
        m_help->showUnder(*m_helpButton);
    else
        m_help->hide();
}

} // namespace orvim
