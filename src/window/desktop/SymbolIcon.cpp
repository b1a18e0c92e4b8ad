#include "window/desktop/SymbolIcon.h"

#include <QBuffer>
#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QImageReader>
#include <QPainter>
#include <QPixmapCache>

namespace
{

// The SVG image plug-in renders the symbol at the requested size.
QImage renderedSvg(const QByteArray &drawing, QSize size)
{
    QByteArray bytes = drawing;
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, "svg");
    reader.setScaledSize(size);
    return reader.read();
}

class SymbolIconEngine : public QIconEngine
{
public:
    SymbolIconEngine(QString name, QByteArray drawing)
        : m_name(std::move(name))
        , m_drawing(std::move(drawing))
    {
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        painter->drawPixmap(rect,
                            pixmapOf(rect.size() * painter->device()->devicePixelRatioF(), colorOf(mode)));
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State) override
    {
        return pixmapOf(size, colorOf(mode));
    }

    QIconEngine *clone() const override { return new SymbolIconEngine(*this); }

private:
    static QColor colorOf(QIcon::Mode mode)
    {
        const QPalette palette = QGuiApplication::palette();
        if (mode == QIcon::Disabled)
            return palette.color(QPalette::Disabled, QPalette::ButtonText);
        return palette.color(mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::ButtonText);
    }

    QPixmap pixmapOf(QSize size, const QColor &color) const
    {
        const QString key = QStringLiteral("symbol-%1-%2-%3")
                                .arg(m_name, color.name())
                                .arg(size.width() * 65536 + size.height());
        QPixmap pixmap;
        if (QPixmapCache::find(key, &pixmap))
            return pixmap;
        QByteArray colored = m_drawing;
        colored.replace("currentColor", color.name().toLatin1());
        pixmap = QPixmap::fromImage(renderedSvg(colored, size));
        QPixmapCache::insert(key, pixmap);
        return pixmap;
    }

    QString m_name;
    QByteArray m_drawing;
};

} // namespace

QIcon symbolIcon(const QString &name)
{
    QFile file(QStringLiteral(":/vexarel/icons/%1.svg").arg(name));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QIcon(new SymbolIconEngine(name, file.readAll()));
}

void SymbolView::setSymbol(const QString &name)
{
    m_symbol = name;
    m_icon = symbolIcon(name);
    update();
}

void SymbolView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    m_icon.paint(&painter, rect());
}
