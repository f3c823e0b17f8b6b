#include "controls/JapaneseFont.h"

#include <QFontDatabase>
#include <QFontInfo>

namespace orvim {

namespace {

QStringList japaneseFaces()
{
    return {
        QStringLiteral("Noto Sans CJK JP"), QStringLiteral("Noto Sans JP"), QStringLiteral("IPAexGothic"),
        QStringLiteral("IPAGothic"),        QStringLiteral("VL Gothic"),    QStringLiteral("TakaoPGothic"),
    };
}

} // namespace

QFont withJapaneseFirst(const QFont& font)
{
    QFont result = font;
    result.setFamilies(japaneseFaces() + font.families());
    return result;
}

QFont japaneseFixedFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    // A general name such as "monospace" would be passed over for the first real face behind it.
    font.setFamilies(QStringList{QFontInfo(font).family()} + QStringList{QStringLiteral("Noto Sans Mono CJK JP")} +
                     japaneseFaces());
    return font;
}

} // namespace orvim
