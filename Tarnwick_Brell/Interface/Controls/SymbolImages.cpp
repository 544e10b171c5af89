#include "Tarnwick_Brell/Interface/Controls/SymbolImages.h"

#include <QByteArray>
#include <QColor>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

namespace app {

namespace {

constexpr int kDrawnSize = 16;

QString fileOf(const QString& name) {
    return QStringLiteral(":/qt/qml/TarnwickBrell/Controls/Icons/%1.svg").arg(name);
}

QByteArray drawingOf(const QString& name) {
    QFile file(fileOf(SymbolImages::has(name) ? name : QString(SymbolImages::kFallback)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

SymbolImages::SymbolImages() : QQuickImageProvider(QQuickImageProvider::Image) {}

bool SymbolImages::has(const QString& name) { return QFile::exists(fileOf(name)); }

QImage SymbolImages::requestImage(const QString& id, QSize* size, const QSize& requestedSize) {
    const auto slash = id.lastIndexOf('/');
    QColor color('#' + id.mid(slash + 1));
    if (!color.isValid()) color = Qt::black;
    const int extent = requestedSize.width() > 0 ? requestedSize.width() : kDrawnSize;

    // SVG has no translucent colours, so the whole picture becomes translucent.
    auto drawing = drawingOf(id.left(slash));
    drawing.replace("currentColor", color.name().toLatin1());
    QImage image(extent, extent, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setOpacity(color.alphaF());
    QSvgRenderer(drawing).render(&painter, QRectF(0, 0, extent, extent));
    *size = image.size();
    return image;
}

}  // namespace app
