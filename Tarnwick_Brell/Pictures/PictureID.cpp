#include "Tarnwick_Brell/Pictures/PictureID.h"

#include <QByteArray>

#include "NewsroomKit/Pictures/Picture.h"

namespace app {

namespace {

constexpr auto kLetters = QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals;

}  // namespace

QString pictureID(std::string_view named) {
    const auto address = kit::pictureAddress(named);
    if (!address) return {};
    return QString::fromLatin1(QByteArray::fromStdString(*address).toBase64(kLetters));
}

std::string pictureAddressOf(const QString& id) {
    return QByteArray::fromBase64(id.toLatin1(), kLetters).toStdString();
}

}  // namespace app
