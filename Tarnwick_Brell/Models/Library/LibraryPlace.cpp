#include "Tarnwick_Brell/Models/Library/LibraryPlace.h"

#include <array>

#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

struct LibraryPageRow {
    LibraryPlace::Page page;
    const char* name;
};

constexpr std::array kLibraryPages{
    LibraryPageRow{LibraryPlace::Page::clips, "clips"},
    LibraryPageRow{LibraryPlace::Page::notes, "notes"},
    LibraryPageRow{LibraryPlace::Page::projects, "projects"},
    LibraryPageRow{LibraryPlace::Page::project, "project"},
    LibraryPageRow{LibraryPlace::Page::removed, "removed"},
    LibraryPageRow{LibraryPlace::Page::search, "search"},
};

}  // namespace

std::optional<LibraryPlace> LibraryPlace::of(const Destination& place) {
    if (place.kind != Destination::Kind::page) return std::nullopt;
    const auto name = place.id.section(u'/', 0, 0);
    const auto id = place.id.section(u'/', 1).toStdString();
    for (const auto& row : kLibraryPages) {
        if (name != QLatin1String(row.name)) continue;
        // A project's page is nothing without a project.
        if (row.page == Page::project && id.empty()) return std::nullopt;
        return LibraryPlace{row.page, id};
    }
    return std::nullopt;
}

Destination LibraryPlace::destination() const {
    auto name = QString::fromLatin1(kLibraryPages[static_cast<std::size_t>(page)].name);
    if (!id.empty()) name += u'/' + plainText(id);
    return {Destination::Kind::page, name};
}

Destination LibraryPlace::sidebarPlace() const {
    return LibraryPlace{page == Page::project ? Page::projects : page, {}}.destination();
}

}  // namespace app
