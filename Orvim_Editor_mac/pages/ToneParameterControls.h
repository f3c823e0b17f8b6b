#pragma once

#include "controls/CoreText.h"
#include "core/tone/ToneParameterTable.h"

#include <QObject>

#include <functional>
#include <map>

class QGroupBox;
class QWidget;

namespace orvim {

/// A titled box of control rows.
QGroupBox* makeToneGroup(const QString& title);

/// Adds a control behind its caption; the captions of all groups take the same width, so that the controls line up.
void addControlRow(QGroupBox& group, const QString& caption, QWidget* control);

/// The controls of tone parameters: kind, caption, range and choices of each are those of its row of the core's table.
class ToneParameterControls : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// A box with the controls of all rows of the group.
    QGroupBox* addGroup(tonavelle::ToneControlGroup group);
    /// Adds the control of one row to a box.
    void addControl(QGroupBox& box, const tonavelle::ToneParameter& parameter);

    /// Shows a record's values, silently.
    template <typename Record>
    void setValues(const Record& record)
    {
        for (const auto& [id, show] : m_shows)
            show(tonavelle::value(tonavelle::toneParameter(id), record));
    }

Q_SIGNALS:
    /// The user has chosen another value.
    void chosen(tonavelle::ToneParameterID id, double value);

private:
    using Show = std::function<void(int value)>;

    QWidget* makeSlider(const tonavelle::ToneParameter& parameter);
    QWidget* makeButtons(const tonavelle::ToneParameter& parameter);
    QWidget* makeMenu(const tonavelle::ToneParameter& parameter);
    QWidget* makeToggle(const tonavelle::ToneParameter& parameter);

    std::map<tonavelle::ToneParameterID, Show> m_shows;
};

} // namespace orvim
