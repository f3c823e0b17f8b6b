#include "controls/SymbolIcon.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace orvim {

namespace {

/// Draws a one-coloured SVG as a stencil: only its coverage counts, the colour comes from the palette.
class SymbolIconEngine : public QIconEngine
{
public:
    SymbolIconEngine(QString name, std::optional<QColor> color) : m_name(std::move(name)), m_color(std::move(color)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal ratio = painter->device() ? painter->device()->devicePixelRatio() : 1;
        painter->drawPixmap(rect, scaledPixmap(rect.size() * ratio, mode, state, ratio));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        return scaledPixmap(size, mode, state, 1);
    }

    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State, qreal) override
    {
        const QColor color = inkColor(mode);
        const QString key = QStringLiteral("symbol/%1/%2x%3/%4")
                                .arg(m_name)
                                .arg(size.width())
                                .arg(size.height())
                                .arg(color.rgba(), 8, 16, QLatin1Char('0'));
        QPixmap result;
        if (QPixmapCache::find(key, &result)) return result;
        result = QPixmap(size);
        result.fill(Qt::transparent);
        QPainter painter(&result);
        QSvgRenderer renderer(path());
        renderer.setAspectRatioMode(Qt::KeepAspectRatio);
        renderer.render(&painter);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(result.rect(), color);
        painter.end();
        QPixmapCache::insert(key, result);
        return result;
    }

    QIconEngine* clone() const override { return new SymbolIconEngine(m_name, m_color); }

private:
    QString path() const { return QStringLiteral(":/icons/%1.svg").arg(m_name); }

    QColor inkColor(QIcon::Mode mode) const
    {
        const QPalette palette = QApplication::palette();
        if (mode == QIcon::Disabled) return palette.color(QPalette::Disabled, QPalette::WindowText);
        if (mode == QIcon::Selected) return palette.color(QPalette::HighlightedText);
        return m_color ? *m_color : palette.color(QPalette::Active, QPalette::WindowText);
    }

    QString m_name;
    std::optional<QColor> m_color;
};

} // namespace

QIcon symbolIcon(const QString& name)
{
    return QIcon(new SymbolIconEngine(name, std::nullopt));
}

QIcon symbolIcon(const QString& name, const QColor& color)
{
    return QIcon(new SymbolIconEngine(name, color));
}

} // namespace orvim
