#pragma once

class QFrame;
class QWidget;

namespace orvim {

/// A quiet level line between two areas, to be put into a layout.
QFrame* makeRule(QWidget* parent = nullptr);

} // namespace orvim
