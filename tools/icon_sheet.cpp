/// Renders the application icon into its PNG sizes, and all symbols onto one sheet on light and on dark ground.
/// Arguments: the icon folder, the sheet to write.

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QSvgRenderer>

#include <array>

namespace {

constexpr std::array appIconSizes{16, 24, 32, 48, 64, 128, 256};
constexpr std::array symbolSizes{20, 28, 56};
constexpr int appIconHeight = 128;
constexpr int cell = 72;
constexpr int columns = 10;

QImage transparentImage(int width, int height)
{
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

QImage rendered(const QString& path, int size)
{
    QImage image = transparentImage(size, size);
    QPainter painter(&image);
    QSvgRenderer(path).render(&painter);
    return image;
}

/// The symbol's coverage in one colour, as the editor tints it.
QImage tinted(const QString& path, int size, const QColor& ink)
{
    QImage image = rendered(path, size);
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), ink);
    return image;
}

bool writeAppIcons(const QDir& icons)
{
    const QString name = icons.filePath(QStringLiteral("app/orvim-editor"));
    for (const int size : appIconSizes) {
        if (!rendered(name + QStringLiteral(".svg"), size).save(QStringLiteral("%1-%2.png").arg(name).arg(size))) {
            return false;
        }
    }
    return true;
}

/// One row of symbols for each size, on the given ground.
QImage symbolBand(const QDir& icons, const QColor& ground, const QColor& ink)
{
    const QStringList names = icons.entryList({QStringLiteral("*.svg")}, QDir::Files, QDir::Name);
    const int rows = (static_cast<int>(names.size()) + columns - 1) / columns;
    const int sizes = static_cast<int>(symbolSizes.size());
    QImage band(columns * cell, rows * sizes * cell + appIconHeight + 16, QImage::Format_RGB32);
    band.fill(ground);
    QPainter painter(&band);
    for (int i = 0; i < names.size(); ++i) {
        for (int s = 0; s < sizes; ++s) {
            const int size = symbolSizes[static_cast<std::size_t>(s)];
            const QPoint centre(i % columns * cell + cell / 2, (i / columns * sizes + s) * cell + cell / 2);
            painter.drawImage(centre - QPoint(size / 2, size / 2), tinted(icons.filePath(names[i]), size, ink));
        }
    }
    int x = 8;
    for (const int size : appIconSizes) {
        if (size > appIconHeight) continue;
        const QString appIcon = icons.filePath(QStringLiteral("app/orvim-editor.svg"));
        painter.drawImage(x, rows * sizes * cell + 8, rendered(appIcon, size));
        x += size + 8;
    }
    return band;
}

} // namespace

int main(int argc, char* argv[])
{
    const QGuiApplication application(argc, argv);
    if (argc != 3) return 2;
    const QDir icons(QString::fromLocal8Bit(argv[1]));
    const QImage light = symbolBand(icons, QColor(0xF4, 0xF4, 0xF4), QColor(0x20, 0x20, 0x20));
    const QImage dark = symbolBand(icons, QColor(0x26, 0x28, 0x2C), QColor(0xEC, 0xEC, 0xEC));
    QImage sheet(light.width() * 2, light.height(), QImage::Format_RGB32);
    QPainter painter(&sheet);
    painter.drawImage(0, 0, light);
    painter.drawImage(light.width(), 0, dark);
    painter.end();
    return writeAppIcons(icons) && sheet.save(QString::fromLocal8Bit(argv[2])) ? 0 : 1;
}
