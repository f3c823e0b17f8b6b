#pragma once

#include "pages/CommandPageActions.h"

#include <QWidget>

#include <span>

class QComboBox;
class QGridLayout;

namespace orvim {

class ColorSwatch;
class DotGridView;
class EditorRuntime;

/// The page "音源制御コマンド": one scrolling column of sections that reset the module and drive its display by hand.
class CommandPageView : public QWidget
{
    Q_OBJECT

public:
    explicit CommandPageView(EditorRuntime& runtime, QWidget* parent = nullptr);

    CommandPageActions& actions() { return m_actions; }

private:
    QWidget* makeResetSection();
    QWidget* makeUITypeSection();
    QWidget* makeColorSection();
    QWidget* makeFaceSection();
    QWidget* makeTextSection();
    QWidget* makeDotSection();
    QWidget* makeSpecialSection();
    void addColorRow(QGridLayout& grid, const QString& label, double CommandPageState::*component,
                     void (CommandPageActions::*set)(double));
    QComboBox* makeFacePicker(tonavelle::UIFacePart part, const QString& label, std::span<const char* const> names);
    void showColor();
    void showFace();
    void showDots();

    CommandPageActions m_actions;
    ColorSwatch* m_swatch = nullptr;
    QComboBox* m_eyebrow = nullptr;
    QComboBox* m_eye = nullptr;
    QComboBox* m_mouth = nullptr;
    DotGridView* m_dotGrid = nullptr;
};

} // namespace orvim
