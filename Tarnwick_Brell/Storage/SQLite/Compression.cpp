#include "Tarnwick_Brell/Storage/SQLite/Compression.h"

#include <QByteArray>

#include "Tarnwick_Brell/Storage/Files/StoreError.h"

namespace app {

std::string compressed(std::string_view text) {
    return qCompress(QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size())))
        .toStdString();
}

std::string uncompressed(std::string_view bytes) {
    const auto text =
        qUncompress(QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size())));
    // Also of an empty text something is stored.
    const bool isEmpty = bytes == compressed({});
    if (text.isEmpty() && !isEmpty)
        throw StoreError(StoreError::Reason::damaged, "A text in the library is damaged.");
    return text.toStdString();
}

}  // namespace app
