#include "Tarnwick_Brell/Models/Window/DroppedThing.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include "NewsroomKit/Addresses/WebAddress.h"

namespace app {

namespace {

using DropKind = DroppedThing::Kind;

struct Drop {
    Q_DECLARE_TR_FUNCTIONS(Drop)
};

constexpr qint64 kMostOfNewsroom = 4 * 1024 * 1024;
constexpr qint64 kBeginning = 4'096;

DroppedThing refusal(const QString& reason) { return {.reason = reason}; }

DroppedThing fileOf(const QString& path) {
    const QFileInfo info(path);
    const auto name = info.fileName();
    if (info.isDir()) return refusal(Drop::tr("“%1” is a folder. Drop a file.").arg(name));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return refusal(Drop::tr("“%1” can't be read: %2").arg(name, file.errorString()));
    const auto beginning = file.peek(kBeginning).trimmed();
    if (beginning.toLower().contains("<opml")) return {.kind = DropKind::outlines, .subject = path};
    if (beginning.startsWith('{') || beginning.startsWith("\xEF\xBB\xBF{")) {
        if (file.size() > kMostOfNewsroom)
            return refusal(Drop::tr("“%1” is too large for a newsroom's file.").arg(name));
        return {.kind = DropKind::newsroom, .subject = path, .bytes = file.readAll().toStdString()};
    }
    if (beginning.contains("<rss") || beginning.contains("<feed") || beginning.contains("<rdf:RDF"))
        return refusal(Drop::tr("“%1” is a feed's file. Drop the feed's address.").arg(name));
    return refusal(
        Drop::tr("“%1” is neither a list of feeds (OPML) nor a newsroom's file.").arg(name));
}

DroppedThing droppedAddress(const QString& address) {
    if (kit::isOpenable(address.toStdString()))
        return {.kind = DropKind::address, .subject = address};
    return refusal(
        Drop::tr("Drop the address of a feed or a site, a list of feeds (OPML) or a "
                 "newsroom's file."));
}

}  // namespace

DroppedThing DroppedThing::of(const QList<QUrl>& urls, const QString& text) {
    if (urls.size() > 1) return refusal(Drop::tr("Drop one thing at a time."));
    if (urls.isEmpty()) return droppedAddress(text.trimmed());
    const auto& url = urls.front();
    if (url.isLocalFile()) return fileOf(url.toLocalFile());
    auto address = url;
    if (url.scheme() == u"feed") address.setScheme(QStringLiteral("https"));
    return droppedAddress(address.toString(QUrl::FullyEncoded));
}

}  // namespace app
