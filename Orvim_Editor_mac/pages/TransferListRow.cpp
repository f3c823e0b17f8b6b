#include "pages/TransferListRow.h"

#include "controls/ElidedLabel.h"
#include "pages/TransferListActions.h"

#include <QFocusEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>

namespace orvim {

namespace {

constexpr int rowMargin = 8;
constexpr int rowSpacing = 12;

/// A small picture in its own pixels, also where the screen has finer ones.
class PicturePreview : public QWidget
{
public:
    explicit PicturePreview(const QImage& picture) : m_picture(picture)
    {
        setObjectName(QStringLiteral("preview"));
        setFixedSize(picture.size());
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
        painter.drawImage(rect(), m_picture);
    }

private:
    QImage m_picture;
};

} // namespace

TransferListRow::TransferListRow(const TransferRow& shown, const QString& buttonTitle, QWidget* parent)
    : QWidget(parent), m_filePath(shown.filePath)
{
    m_number = new QLabel;
    auto* const path = new ElidedLabel;
    path->setElideMode(Qt::ElideMiddle); // The file's name tells the rows apart.
    path->setText(shown.filePath);
    m_button = new QPushButton(buttonTitle);
    m_button->setObjectName(buttonTitle);
    m_button->installEventFilter(this);

    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(rowMargin, rowMargin / 2, rowMargin, rowMargin / 2);
    layout->setSpacing(rowSpacing);
    layout->addWidget(m_number);
    if (!shown.preview.isNull()) layout->addWidget(new PicturePreview(shown.preview));
    layout->addWidget(path, 1);
    if (!shown.detail.isEmpty()) layout->addWidget(new QLabel(shown.detail));
    layout->addWidget(m_button);
    showNumber(shown.number);
}

void TransferListRow::showNumber(int number)
{
    const QString text = QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
    if (text == m_number->text()) return; // Assistive programs are told of each name anew.
    m_number->setText(text);
    setAccessibleName(text + QLatin1Char(' ') + m_filePath);
    m_button->setAccessibleDescription(accessibleName());
}

bool TransferListRow::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::FocusIn && static_cast<QFocusEvent*>(event)->reason() != Qt::MouseFocusReason)
        Q_EMIT buttonReached();
    return QWidget::eventFilter(object, event);
}

} // namespace orvim
