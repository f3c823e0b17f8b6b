#include "controls/SegmentedPicker.h"

#include "controls/ThemeColors.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QHBoxLayout>
#include <QPainter>
#include <QPainterPath>

namespace orvim {

namespace {

constexpr double cornerRadius = 5;
constexpr int sidePadding = 8;
constexpr int topPadding = 5;

class Segment : public QAbstractButton
{
public:
    Segment(const QString& title, bool isFirst, bool isLast) : m_isFirst(isFirst), m_isLast(isLast)
    {
        setText(title);
        setObjectName(title);
        setCheckable(true);
        setFocusPolicy(Qt::StrongFocus);
    }

    QSize sizeHint() const override
    {
        const auto metrics = fontMetrics();
        return {metrics.horizontalAdvance(text()) + 2 * sidePadding, metrics.height() + 2 * topPadding};
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        // The outline of the whole row, of which this segment shows its part.
        const auto outline =
            QRectF(rect()).adjusted(m_isFirst ? 0.5 : -cornerRadius, 0.5, m_isLast ? -0.5 : cornerRadius, -0.5);
        const auto line = mixedColor(palette(), QPalette::WindowText, QPalette::Window, 0.35);
        const auto ground = palette().color(isChecked() ? QPalette::Highlight : QPalette::Button);
        painter.setPen(QPen(line, 1));
        painter.setBrush(isDown() ? ground.darker(115) : ground);
        painter.drawRoundedRect(outline, cornerRadius, cornerRadius);
        if (!m_isFirst) painter.fillRect(QRectF(0, 1, 1, height() - 2), line);
        painter.setPen(palette().color(isChecked() ? QPalette::HighlightedText : QPalette::ButtonText));
        painter.drawText(rect(), Qt::AlignCenter, text());
        if (hasFocus()) {
            painter.fillRect(QRectF(sidePadding / 2.0, height() - 4, width() - sidePadding, 2),
                             palette().color(isChecked() ? QPalette::HighlightedText : QPalette::Highlight));
        }
    }

private:
    bool m_isFirst;
    bool m_isLast;
};

} // namespace

SegmentedPicker::SegmentedPicker(const QStringList& titles, QWidget* parent)
    : QWidget(parent), m_segments(new QButtonGroup(this))
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    for (int i = 0; i < titles.size(); ++i) {
        auto* segment = new Segment(titles[i], i == 0, i == titles.size() - 1);
        m_segments->addButton(segment, i);
        layout->addWidget(segment);
    }
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setCurrentIndex(0);
    connect(m_segments, &QButtonGroup::idToggled, this, [this](int index, bool chosen) {
        if (!chosen || index == m_told) return;
        m_told = index;
        Q_EMIT picked(index);
    });
}

int SegmentedPicker::currentIndex() const
{
    return m_segments->checkedId();
}

void SegmentedPicker::setCurrentIndex(int index)
{
    auto* const segment = m_segments->button(index);
    m_told = segment ? index : none;
    if (segment) return segment->setChecked(true);
    auto* const former = m_segments->checkedButton();
    if (!former) return;
    m_segments->setExclusive(false);
    former->setChecked(false);
    m_segments->setExclusive(true);
}

} // namespace orvim
