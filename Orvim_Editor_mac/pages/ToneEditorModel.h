#pragma once

#include "pages/ToneEditorState.h"

#include <QFlags>
#include <QObject>

namespace orvim {

/// What of the tone editor a change concerns: records and selections go together.
enum class ToneEditorPart {
    master = 1,
    channel = 2,
    userMelody = 4,
    userDrum = 8,
    userWave = 16,
    names = 32, ///< of user melodies, drum notes or the drum set
    tab = 64,   ///< the open tab, or which tabs are built
    options = 128,
    help = 256,
};
Q_DECLARE_FLAGS(ToneEditorParts, ToneEditorPart)
Q_DECLARE_OPERATORS_FOR_FLAGS(ToneEditorParts)

/// The state of the tone editor with a notice of each change. All of the page's actions work on the same one.
class ToneEditorModel : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    const ToneEditorState& state() const { return m_state; }

    /// Lets `edit` write the state, then tells of `parts`.
    template <typename Edit>
    void change(ToneEditorParts parts, Edit edit)
    {
        edit(m_state);
        Q_EMIT changed(parts);
    }

    /// Chooses the row of a list, limited to it.
    void select(int ToneEditorState::*selection, int row);
    /// Brings every selection back into its list.
    void limitSelections();

    static constexpr ToneEditorParts everything = ToneEditorPart::master | ToneEditorPart::channel |
                                                  ToneEditorPart::userMelody | ToneEditorPart::userDrum |
                                                  ToneEditorPart::userWave | ToneEditorPart::names |
                                                  ToneEditorPart::tab | ToneEditorPart::options | ToneEditorPart::help;

Q_SIGNALS:
    void changed(orvim::ToneEditorParts parts);

private:
    ToneEditorState m_state;
};

} // namespace orvim
