#pragma once

#include <QByteArrayView>
#include <QString>

namespace app {

/// A file in the user's folder for downloads.
struct SavedFile {
    QString path{};
    QString error{};  ///< why it is not there; empty when it is

    bool isSaved() const { return error.isEmpty(); }

    /// Writes it whole or not at all. A file that is there stays: "Tides.pdf", then "Tides 2.pdf".
    /// `suffix` is without the dot.
    static SavedFile write(const QString& name, const QString& suffix, QByteArrayView bytes);
};

}  // namespace app
