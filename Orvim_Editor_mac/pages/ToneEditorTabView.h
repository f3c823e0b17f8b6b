#pragma once

#include "pages/ToneEditorModel.h"

#include <QWidget>

class QBoxLayout;

namespace orvim {

struct ToneEditorActions;
class OncePerTurn;
class PreviewPatchListView;

/// What the tabs of the tone editor share: each follows the parts of the state that it shows, once a turn of the event
/// loop however many changes there were.
class ToneEditorTabView : public QWidget
{
    Q_OBJECT

public:
    ToneEditorTabView(ToneEditorActions& actions, ToneEditorParts followed, QWidget* parent = nullptr);

protected:
    /// Brings the widgets in line with the state, silently.
    virtual void showState() = 0;

    ToneEditorActions& actions() const { return m_actions; }
    const ToneEditorState& state() const;

    /// Puts a list under its caption on the left and the tab's controls, which scroll, beside it.
    void setContent(const QString& listCaption, PreviewPatchListView* list, QWidget* controls);
    /// The same without a list.
    void setContent(QWidget* controls);

private:
    void addControls(QBoxLayout& layout, QWidget* controls);

    ToneEditorActions& m_actions;
    OncePerTurn* m_refresh = nullptr;
};

/// A column of boxes under a heading, which may be empty.
QWidget* makeToneColumn(const QString& heading, const QList<QWidget*>& boxes);

} // namespace orvim
