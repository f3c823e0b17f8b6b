#pragma once

namespace orvim {

class TransferListView;

/// Makes the list known to assistive programs with its rows as list items, and these with what lies in them, where the
/// toolkit's own interface of a list knows nothing of the widgets in its rows.
void makeAccessible(TransferListView& list);

} // namespace orvim
