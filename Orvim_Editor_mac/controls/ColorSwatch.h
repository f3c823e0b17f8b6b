#pragma once

#include <QColor>
#include <QWidget>

namespace orvim {

/// A field filled with one colour.
class ColorSwatch : public QWidget
{
    Q_OBJECT

public:
    explicit ColorSwatch(QWidget* parent = nullptr);

    void setColor(const QColor& color);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor m_color;
};

} // namespace orvim
