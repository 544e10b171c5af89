#include "Tarnwick_Brell/Models/Sidebar/Destination.h"

#include <algorithm>
#include <array>

namespace app {

namespace {

struct Row {
    Destination::Kind kind;
    QLatin1String group;
    QLatin1String name;  ///< empty: an id follows
};

const std::array kRows{
    Row{Destination::Kind::newsroom, QLatin1String("newsroom"), {}},
    Row{Destination::Kind::all, QLatin1String("wire"), QLatin1String("all")},
    Row{Destination::Kind::unread, QLatin1String("wire"), QLatin1String("unread")},
    Row{Destination::Kind::saved, QLatin1String("wire"), QLatin1String("saved")},
    Row{Destination::Kind::topStories, QLatin1String("wire"), QLatin1String("top")},
    Row{Destination::Kind::beat, QLatin1String("beat"), {}},
    Row{Destination::Kind::source, QLatin1String("source"), {}},
    Row{Destination::Kind::tracker, QLatin1String("tracker"), {}},
    Row{Destination::Kind::page, QLatin1String("page"), {}},
};

}  // namespace

QString Destination::key() const {
    const auto& row = *std::find_if(kRows.begin(), kRows.end(),
                                    [&](const Row& each) { return each.kind == kind; });
    return row.group + u':' + (row.name.isEmpty() ? id : QString(row.name));
}

std::optional<Destination> Destination::fromKey(const QString& key) {
    const auto colon = key.indexOf(u':');
    const auto group = key.left(colon);
    const auto rest = key.mid(colon + 1);
    if (colon < 0 || rest.isEmpty()) return std::nullopt;
    for (const auto& row : kRows) {
        if (row.group != group) continue;
        if (row.name.isEmpty()) return Destination{row.kind, rest};
        if (row.name == rest) return Destination{row.kind, {}};
    }
    return std::nullopt;
}

}  // namespace app
