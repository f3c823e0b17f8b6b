#pragma once

#include <QWidget>

class QUrl;
class QVBoxLayout;

namespace orvim {

/// The page "情報": where help is, and thanks. Each link opens in the default browser.
class InformationPageView : public QWidget
{
    Q_OBJECT

public:
    explicit InformationPageView(QWidget* parent = nullptr);

private:
    void fill(QVBoxLayout& column);
};

} // namespace orvim
