#include "ApplicationStyle.h"

#include "controls/JapaneseFont.h"

#include <QApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace orvim {

void applyApplicationStyle(QApplication& application)
{
    QCoreApplication::setApplicationName(QStringLiteral("orvim-editor"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ORVIM_VERSION));
    // No display name: the toolkit would write it behind every window's title, and ours are whole as they stand.
    QGuiApplication::setDesktopFileName(QStringLiteral("orvim-editor"));
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/app/orvim-editor.svg")));
    QLocale::setDefault(QLocale(QLocale::Japanese, QLocale::Japan));
    QApplication::setFont(withJapaneseFirst(QApplication::font()));

    auto* const translator = new QTranslator(&application);
    if (translator->load(QStringLiteral("qtbase_ja"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(translator);
}

} // namespace orvim
