#pragma once

#include <QIcon>
#include <QWidget>

namespace orvim {

/// A square that shows an icon, painted anew for whatever theme and screen it stands on.
class IconLabel : public QWidget
{
    Q_OBJECT

public:
    explicit IconLabel(int size, QWidget* parent = nullptr);

    void setIcon(const QIcon& icon);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QIcon m_icon;
};

} // namespace orvim
