#include "ApplicationStyle.h"

#include <QApplication>
#include <QFont>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace orvim {

namespace {

/// Without a Japanese face in front, kanji come out in Chinese shapes or as boxes on many systems.
QFont japaneseFont(const QFont& systemFont)
{
    QFont font = systemFont;
    QStringList families{
        QStringLiteral("Noto Sans CJK JP"), QStringLiteral("Noto Sans JP"), QStringLiteral("IPAexGothic"),
        QStringLiteral("IPAGothic"),        QStringLiteral("VL Gothic"),    QStringLiteral("TakaoPGothic"),
    };
    font.setFamilies(families + systemFont.families());
    return font;
}

} // namespace

void applyApplicationStyle(QApplication& application)
{
    QCoreApplication::setApplicationName(QStringLiteral("orvim-editor"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ORVIM_VERSION));
    // No display name: the toolkit would write it behind every window's title, and ours are whole as they stand.
    QGuiApplication::setDesktopFileName(QStringLiteral("orvim-editor"));
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/app/orvim-editor.svg")));
    QLocale::setDefault(QLocale(QLocale::Japanese, QLocale::Japan));
    QApplication::setFont(japaneseFont(QApplication::font()));

    auto* const translator = new QTranslator(&application);
    if (translator->load(QStringLiteral("qtbase_ja"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(translator);
}

} // namespace orvim
