#include "Tarnwick_Brell/Pictures/PictureDecoder.h"

#include <algorithm>
#include <memory>

#include <QBuffer>
#include <QByteArray>
#include <QImageReader>
#include <QPainter>
#include <QPainterPath>

#include "NewsroomKit/Pictures/Picture.h"

namespace app {

namespace {

constexpr double kMostEnlarged = 2;

/// A reader of the head of a file. `device` must outlive it.
std::unique_ptr<QImageReader> readerOf(QBuffer& device) {
    const auto bytes = device.data();
    const auto format =
        kit::pictureFormat({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    if (!format) return nullptr;
    const auto name = rawValue(*format);
    // Qt must not guess: it would try formats that are not wanted, such as SVG.
    auto reader = std::make_unique<QImageReader>(
        &device, QByteArray(name.data(), static_cast<qsizetype>(name.size())));
    reader->setAutoDetectImageFormat(false);
    reader->setAutoTransform(true);
    const auto size = reader->size();
    return kit::isPictureSize(size.width(), size.height()) ? std::move(reader) : nullptr;
}

QByteArray unowned(std::string_view bytes) {
    return QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

/// How large the picture is drawn: it covers the place, unless that would make it coarse.
QSize drawnSize(QSize picture, QSize place) {
    const auto cover = picture.scaled(place, Qt::KeepAspectRatioByExpanding);
    const auto most = picture * kMostEnlarged;
    return cover.width() > most.width() ? most : cover;
}

QImage cutToShape(const QImage& picture, const PictureShape& shape) {
    QImage cut(shape.size, QImage::Format_ARGB32_Premultiplied);
    cut.fill(Qt::transparent);
    QPainter painter(&cut);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    QPainterPath outline;
    const double radius = shape.corner * shape.size.width();
    outline.addRoundedRect(cut.rect(), radius, radius);
    // A brush has smooth edges, which a clip has not.
    QBrush brush(picture);
    QRect place(QPoint(), picture.size());
    place.moveCenter(cut.rect().center());
    brush.setTransform(QTransform::fromTranslate(place.x(), place.y()));
    painter.setPen(Qt::NoPen);
    painter.setBrush(brush);
    // Else the brush would repeat the picture beside it.
    painter.setClipRect(place);
    painter.drawPath(outline);
    return cut;
}

}  // namespace

bool isDecodable(std::string_view bytes) {
    QBuffer device;
    device.setData(unowned(bytes));
    return device.open(QIODevice::ReadOnly) && readerOf(device);
}

QImage decodePicture(std::string_view bytes, const PictureShape& shape) {
    if (shape.size.isEmpty()) return {};
    QBuffer device;
    device.setData(unowned(bytes));
    if (!device.open(QIODevice::ReadOnly)) return {};
    const auto reader = readerOf(device);
    if (!reader) return {};
    // The transformation of a camera's orientation comes after the scaling.
    const bool isTurned = reader->transformation() & QImageIOHandler::TransformationRotate90;
    const auto place = isTurned ? shape.size.transposed() : shape.size;
    reader->setScaledSize(drawnSize(reader->size(), place));
    const auto picture = reader->read();
    return picture.isNull() ? QImage() : cutToShape(picture, shape);
}

}  // namespace app
