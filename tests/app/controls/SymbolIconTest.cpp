#include "controls/SymbolIcon.h"

#include "EditorPage.h"

#include <QDir>
#include <QSvgRenderer>

#include <gmock/gmock.h>

namespace orvim {
namespace {

const QStringList symbolNames{
    QStringLiteral("arrow.clockwise"),
    QStringLiteral("checkmark.circle"),
    QStringLiteral("doc"),
    QStringLiteral("exclamationmark.triangle"),
    QStringLiteral("folder"),
    QStringLiteral("gearshape"),
    QStringLiteral("info.circle"),
    QStringLiteral("minus"),
    QStringLiteral("paperplane"),
    QStringLiteral("photo"),
    QStringLiteral("photo.badge.plus"),
    QStringLiteral("plus"),
    QStringLiteral("slider.horizontal.3"),
    QStringLiteral("square.and.arrow.down"),
    QStringLiteral("terminal"),
    QStringLiteral("text.bubble"),
    QStringLiteral("text.quote"),
    QStringLiteral("waveform"),
    QStringLiteral("waveform.badge.plus"),
};

bool hasInk(const QImage& image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 200) return true;
        }
    }
    return false;
}

TEST(SymbolIcons, AreTheSymbolsOfTheEditorAndNoOthers)
{
    QStringList found;
    for (const QString& file : QDir(QStringLiteral(":/icons")).entryList({QStringLiteral("*.svg")}, QDir::Files)) {
        found.append(file.chopped(4));
    }
    found.sort();
    EXPECT_EQ(found.join(u' ').toStdString(), symbolNames.join(u' ').toStdString());
}

TEST(SymbolIcons, EachDrawsInkWithinItsFrame)
{
    for (const QString& name : symbolNames) {
        QSvgRenderer renderer(QStringLiteral(":/icons/%1.svg").arg(name));
        ASSERT_TRUE(renderer.isValid()) << name.toStdString();
        EXPECT_EQ(renderer.viewBox(), QRect(0, 0, 24, 24)) << name.toStdString();
        const QImage image = symbolIcon(name).pixmap(28, 28).toImage();
        EXPECT_TRUE(hasInk(image)) << name.toStdString();
        EXPECT_FALSE(hasInk(image.copy(0, 0, 28, 1))) << name.toStdString();
        EXPECT_FALSE(hasInk(image.copy(0, 0, 1, 28))) << name.toStdString();
    }
}

TEST(SymbolIcons, EveryPageHasItsSymbol)
{
    for (const EditorPage page : allEditorPages) {
        EXPECT_THAT(symbolNames, testing::Contains(symbol(page)));
    }
}

TEST(SymbolIcons, TheApplicationIconCanBeDrawn)
{
    EXPECT_TRUE(QSvgRenderer(QStringLiteral(":/icons/app/orvim-editor.svg")).isValid());
}

} // namespace
} // namespace orvim
