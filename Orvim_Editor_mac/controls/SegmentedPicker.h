#pragma once

#include <QWidget>

class QButtonGroup;

namespace orvim {

/// A row of joined buttons of which one is chosen; the arrow keys move the choice.
class SegmentedPicker : public QWidget
{
    Q_OBJECT

public:
    explicit SegmentedPicker(const QStringList& titles, QWidget* parent = nullptr);

    static constexpr int none = -1;

    /// `none` while no segment is chosen.
    int currentIndex() const;
    /// The program's side, silent. An index without a segment chooses none, so that each can be picked.
    void setCurrentIndex(int index);

Q_SIGNALS:
    /// The user has chosen another segment.
    void picked(int index);

private:
    QButtonGroup* m_segments = nullptr;
    int m_told = none; ///< the choice that everybody knows of
};

} // namespace orvim
