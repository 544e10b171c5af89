#include "Tarnwick_Brell/Models/Sidebar/Place.h"

#include <algorithm>
#include <array>

namespace desk {

namespace {

struct Row {
    Place::Kind kind;
    QLatin1String group;
    QLatin1String name;  ///< empty: an id follows
};

const std::array kRows{
    Row{Place::Kind::newsroom, QLatin1String("newsroom"), {}},
    Row{Place::Kind::all, QLatin1String("wire"), QLatin1String("all")},
    Row{Place::Kind::unread, QLatin1String("wire"), QLatin1String("unread")},
    Row{Place::Kind::saved, QLatin1String("wire"), QLatin1String("saved")},
    Row{Place::Kind::topStories, QLatin1String("wire"), QLatin1String("top")},
    Row{Place::Kind::beat, QLatin1String("beat"), {}},
    Row{Place::Kind::source, QLatin1String("source"), {}},
    Row{Place::Kind::tracker, QLatin1String("tracker"), {}},
};

}  // namespace

QString Place::key() const {
    const auto& row = *std::find_if(kRows.begin(), kRows.end(),
                                    [&](const Row& each) { return each.kind == kind; });
    return row.group + u':' + (row.name.isEmpty() ? id : QString(row.name));
}

std::optional<Place> Place::fromKey(const QString& key) {
    const auto colon = key.indexOf(u':');
    const auto group = key.left(colon);
    const auto rest = key.mid(colon + 1);
    if (colon < 0 || rest.isEmpty()) return std::nullopt;
    for (const auto& row : kRows) {
        if (row.group != group) continue;
        if (row.name.isEmpty()) return Place{row.kind, rest};
        if (row.name == rest) return Place{row.kind, {}};
    }
    return std::nullopt;
}

}  // namespace desk
