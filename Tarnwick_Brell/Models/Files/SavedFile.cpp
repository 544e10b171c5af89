#include "Tarnwick_Brell/Models/Files/SavedFile.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStandardPaths>

namespace app {

namespace {

/// File systems take names of 255 bytes, the number and the suffix among them.
constexpr qsizetype kLongestNameBytes = 200;

QString fileName(QString name) {
    for (auto& letter : name)
        if (letter == u'/' || letter == u'\\' || !letter.isPrint()) letter = u' ';
    name = name.simplified();
    while (name.startsWith(u'.')) name.remove(0, 1);
    while (name.toUtf8().size() > kLongestNameBytes) name.chop(1);
    if (!name.isEmpty() && name.back().isHighSurrogate()) name.chop(1);
    return name.trimmed();
}

QString freePath(const QDir& folder, const QString& name, const QString& suffix) {
    auto path = folder.filePath(name + u'.' + suffix);
    for (int number = 2; QFile::exists(path); ++number)
        path = folder.filePath(QStringLiteral("%1 %2.%3").arg(name).arg(number).arg(suffix));
    return path;
}

}  // namespace

SavedFile SavedFile::write(const QString& name, const QString& suffix, QByteArrayView bytes) {
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::DownloadLocation));
    QDir().mkpath(folder.path());
    const auto clean = fileName(name);
    SavedFile saved{.path = freePath(folder, clean.isEmpty() ? suffix : clean, suffix)};
    QSaveFile file(saved.path);
    const bool isWritten = file.open(QIODevice::WriteOnly) &&
                           file.write(bytes.data(), bytes.size()) == bytes.size() && file.commit();
    if (!isWritten) saved.error = file.errorString();
    return saved;
}

}  // namespace app
