#pragma once

#include <QWidget>

class QBoxLayout;

namespace orvim {

/// Columns side by side where there is room for all of them, below one another where there is not.
class AdaptiveColumns : public QWidget
{
    Q_OBJECT

public:
    explicit AdaptiveColumns(QWidget* parent = nullptr);

    void addColumn(QWidget* column);

    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    int narrowest() const;

    QBoxLayout* m_columns = nullptr;
};

} // namespace orvim
