#include "PressRoom/Pages/PagesWorld.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <tuple>

#include "PressRoom/World/DataFile.h"

namespace kit {

using namespace pressroom;

template <>
struct JSONFields<WorldPageLine> {
    static constexpr auto fields = std::tuple{
        field("text", &WorldPageLine::text), field("minutesAgo", &WorldPageLine::minutesAgo),
        field("goneMinutesAgo", &WorldPageLine::goneMinutesAgo)};
};

template <>
struct JSONFields<WorldPageFault> {
    static constexpr auto fields = std::tuple{
        field("kind", &WorldPageFault::kind), field("minutesAgo", &WorldPageFault::minutesAgo),
        field("goneMinutesAgo", &WorldPageFault::goneMinutesAgo),
        field("asOf", &WorldPageFault::asOf)};
};

template <>
struct JSONFields<WorldWebPage> {
    static constexpr auto fields =
        std::tuple{field("host", &WorldWebPage::host), field("path", &WorldWebPage::path),
                   field("title", &WorldWebPage::title), field("lines", &WorldWebPage::lines),
                   field("faults", &WorldWebPage::faults)};
};

template <>
struct JSONFields<WorldWebPages> {
    static constexpr auto fields = std::tuple{field("pages", &WorldWebPages::pages)};
};

}  // namespace kit

namespace pressroom {
namespace {

constexpr std::array<std::string_view, 7> kPageFaults{"old",      "blocked", "short", "shuffled",
                                                      "redirect", "foreign", "broken"};

void checkWebPages(const WorldWebPages& world) {
    for (const auto& page : world.pages) {
        for (const auto& fault : page.faults) {
            if (std::ranges::find(kPageFaults, fault.kind) == kPageFaults.end())
                throw kit::RecordError(page.path, "there is no fault \"" + fault.kind + "\"");
        }
    }
}

}  // namespace

WorldWebPages readWebPages(const std::filesystem::path& directory) {
    return readDataFile<WorldWebPages>(directory / "pages" / "pages.json", checkWebPages);
}

}  // namespace pressroom
