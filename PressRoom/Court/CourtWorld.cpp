#include "PressRoom/Court/CourtWorld.h"

#include <algorithm>
#include <functional>
#include <tuple>

#include "PressRoom/World/DataFile.h"

namespace kit {

using namespace pressroom;

template <>
struct JSONFields<WorldDocketEntry> {
    static constexpr auto fields =
        std::tuple{field("number", &WorldDocketEntry::number),
                   field("minutesAgo", &WorldDocketEntry::minutesAgo),
                   field("events", &WorldDocketEntry::events),
                   field("text", &WorldDocketEntry::text),
                   field("textMinutesAgo", &WorldDocketEntry::textMinutesAgo),
                   field("freeMinutesAgo", &WorldDocketEntry::freeMinutesAgo)};
};

template <>
struct JSONFields<WorldDocket> {
    static constexpr auto fields = std::tuple{
        field("docket", &WorldDocket::docket),  field("court", &WorldDocket::court),
        field("slug", &WorldDocket::slug),      field("number", &WorldDocket::number),
        field("name", &WorldDocket::name),      field("pacerCase", &WorldDocket::pacerCase),
        field("cause", &WorldDocket::cause),    field("parties", &WorldDocket::parties),
        field("entries", &WorldDocket::entries)};
};

template <>
struct JSONFields<WorldDockets> {
    static constexpr auto fields = std::tuple{field("dockets", &WorldDockets::dockets)};
};

template <>
struct JSONFields<WorldPressRelease> {
    static constexpr auto fields = std::tuple{field("id", &WorldPressRelease::id),
                                              field("wires", &WorldPressRelease::wires),
                                              field("company", &WorldPressRelease::company),
                                              field("symbol", &WorldPressRelease::symbol),
                                              field("title", &WorldPressRelease::title),
                                              field("text", &WorldPressRelease::text),
                                              field("minutesAgo", &WorldPressRelease::minutesAgo)};
};

template <>
struct JSONFields<WorldPress> {
    static constexpr auto fields = std::tuple{field("releases", &WorldPress::releases)};
};

}  // namespace kit

namespace pressroom {
namespace {

void checkDockets(const WorldDockets& world) {
    for (const auto& docket : world.dockets) {
        inside(docket.docket, [&] {
            const auto& entries = docket.entries;
            if (entries.empty()) throw kit::RecordError("entries", "there are none");
            if (!std::ranges::is_sorted(entries, std::greater{}, &WorldDocketEntry::minutesAgo))
                throw kit::RecordError("entries", "the oldest must come first");
            for (const auto& entry : entries) {
                if (entry.events.empty())
                    throw kit::RecordError("entries", "an entry has no events");
            }
        });
    }
}

void checkPress(const WorldPress& world) {
    for (const auto& release : world.releases) {
        if (release.wires.empty()) throw kit::RecordError(release.id, "it is on no wire");
    }
}

}  // namespace

CourtWorld readCourtWorld(const std::filesystem::path& directory) {
    const auto folder = directory / "court";
    return {.dockets = readDataFile<WorldDockets>(folder / "dockets.json", checkDockets),
            .releases = readDataFile<WorldPress>(folder / "press.json", checkPress)};
}

}  // namespace pressroom
