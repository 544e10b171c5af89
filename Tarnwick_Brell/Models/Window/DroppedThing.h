#pragma once

#include <string>

#include <QList>
#include <QString>
#include <QUrl>

namespace app {

/// What another program dropped on the window.
struct DroppedThing {
    enum class Kind {
        address,   ///< of a feed or a site
        outlines,  ///< a file with a list of feeds
        newsroom,  ///< a newsroom's file
        refused
    };

    Kind kind = Kind::refused;
    QString subject{};    ///< the address, or the path of the file
    std::string bytes{};  ///< of a newsroom's file
    QString reason{};     ///< why it is refused, as a sentence

    /// Reads the file's beginning, or a newsroom's file whole. `text` counts without addresses.
    static DroppedThing of(const QList<QUrl>& urls, const QString& text);
};

}  // namespace app
