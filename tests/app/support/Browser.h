#pragma once

#include <QDesktopServices>
#include <QList>
#include <QObject>
#include <QUrl>

#include <array>

namespace orvim::test {

/// Stands in for the browser while it lives, and keeps the addresses that it is asked to open.
class Browser : public QObject
{
    Q_OBJECT

public:
    Browser()
    {
        for (const auto* const scheme : schemes)
            QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), this, "open");
    }

    ~Browser() override
    {
        for (const auto* const scheme : schemes)
            QDesktopServices::unsetUrlHandler(QString::fromLatin1(scheme));
    }

    QList<QUrl> opened;

public Q_SLOTS:
    void open(const QUrl& address) { opened << address; }

private:
    static constexpr std::array<const char*, 3> schemes{"file", "http", "https"};
};

} // namespace orvim::test
