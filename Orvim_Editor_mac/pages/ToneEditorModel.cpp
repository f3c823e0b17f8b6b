#include "pages/ToneEditorModel.h"

#include <algorithm>

namespace orvim {

namespace {

struct List {
    int ToneEditorState::*selection;
    ToneEditorPart part;
    std::size_t (*count)(const tonavelle::ToneInstrument&);
};

constexpr std::array<List, 4> lists{{
    {&ToneEditorState::selectedChannel, ToneEditorPart::channel,
     [](const tonavelle::ToneInstrument& instrument) { return instrument.channels.size(); }},
    {&ToneEditorState::selectedUserMelody, ToneEditorPart::userMelody,
     [](const tonavelle::ToneInstrument& instrument) { return instrument.userMelodies.size(); }},
    {&ToneEditorState::selectedUserDrum, ToneEditorPart::userDrum,
     [](const tonavelle::ToneInstrument& instrument) { return instrument.userDrums.size(); }},
    {&ToneEditorState::selectedUserWave, ToneEditorPart::userWave,
     [](const tonavelle::ToneInstrument& instrument) { return instrument.userWaveforms.size(); }},
}};

} // namespace

void ToneEditorModel::select(int ToneEditorState::*selection, int row)
{
    const auto list = std::ranges::find(lists, selection, &List::selection);
    Q_ASSERT(list != lists.end());
    const int last = static_cast<int>(list->count(m_state.instrument)) - 1;
    change(list->part, [&](ToneEditorState& state) { state.*selection = std::clamp(row, 0, last); });
}

void ToneEditorModel::limitSelections()
{
    for (const List& list : lists)
        select(list.selection, m_state.*list.selection);
}

} // namespace orvim
