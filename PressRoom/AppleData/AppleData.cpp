#include "PressRoom/AppleData/AppleData.h"

#include <algorithm>
#include <functional>
#include <tuple>

namespace kit {

using namespace pressroom;

template <>
struct JSONFields<WorldFirmware> {
    static constexpr auto fields =
        std::tuple{field("version", &WorldFirmware::version), field("build", &WorldFirmware::build),
                   field("minutesAgo", &WorldFirmware::minutesAgo),
                   field("unsignedMinutesAgo", &WorldFirmware::unsignedMinutesAgo)};
};

template <>
struct JSONFields<WorldSystem> {
    static constexpr auto fields = std::tuple{field("system", &WorldSystem::system),
                                              field("firmwares", &WorldSystem::firmwares)};
};

template <>
struct JSONFields<WorldDevice> {
    static constexpr auto fields =
        std::tuple{field("identifier", &WorldDevice::identifier), field("name", &WorldDevice::name),
                   field("system", &WorldDevice::system)};
};

template <>
struct JSONFields<WorldSigning> {
    static constexpr auto fields = std::tuple{field("systems", &WorldSigning::systems),
                                              field("devices", &WorldSigning::devices)};
};

template <>
struct JSONFields<WorldAsset> {
    static constexpr auto fields = std::tuple{field("set", &WorldAsset::set),
                                              field("version", &WorldAsset::version),
                                              field("build", &WorldAsset::build),
                                              field("minutesAgo", &WorldAsset::minutesAgo),
                                              field("goneMinutesAgo", &WorldAsset::goneMinutesAgo),
                                              field("expiresInDays", &WorldAsset::expiresInDays),
                                              field("devices", &WorldAsset::devices)};
};

template <>
struct JSONFields<WorldUpdates> {
    static constexpr auto fields =
        std::tuple{field("assets", &WorldUpdates::assets), field("managed", &WorldUpdates::managed),
                   field("improvements", &WorldUpdates::improvements)};
};

template <>
struct JSONFields<WorldApp> {
    static constexpr auto fields =
        std::tuple{field("id", &WorldApp::id), field("name", &WorldApp::name),
                   field("developer", &WorldApp::developer)};
};

template <>
struct JSONFields<WorldMove> {
    static constexpr auto fields =
        std::tuple{field("minutesAgo", &WorldMove::minutesAgo), field("app", &WorldMove::app),
                   field("rank", &WorldMove::rank)};
};

template <>
struct JSONFields<WorldChart> {
    static constexpr auto fields =
        std::tuple{field("kind", &WorldChart::kind), field("apps", &WorldChart::apps),
                   field("moves", &WorldChart::moves)};
};

template <>
struct JSONFields<WorldCharts> {
    static constexpr auto fields = std::tuple{field("charts", &WorldCharts::charts)};
};

}  // namespace kit

namespace pressroom {
namespace {

using kit::RecordError;

void checkSigning(const WorldSigning& signing) {
    for (const auto& device : signing.devices) {
        const bool isKnown = std::ranges::find(signing.systems, device.system,
                                               &WorldSystem::system) != signing.systems.end();
        if (!isKnown) throw RecordError("devices", "there is no system " + device.system);
    }
}

void checkUpdates(const WorldUpdates& updates) {
    for (const auto& asset : updates.assets) {
        if (asset.devices.empty()) throw RecordError("assets", asset.build + " has no devices");
    }
}

void checkChart(const WorldChart& chart) {
    for (const auto& move : chart.moves) {
        if (std::ranges::find(chart.apps, move.app, &WorldApp::id) == chart.apps.end()) {
            throw RecordError("moves", "there is no app " + move.app);
        }
        if (move.rank < 1 || move.rank > static_cast<double>(chart.apps.size())) {
            throw RecordError("moves", "the chart has no such rank");
        }
    }
    if (!std::ranges::is_sorted(chart.moves, std::greater{}, &WorldMove::minutesAgo)) {
        throw RecordError("moves", "the oldest must come first");
    }
}

void checkCharts(const WorldCharts& charts) {
    for (const auto& chart : charts.charts) {
        inside(chart.kind, [&] { checkChart(chart); });
    }
}

}  // namespace

AppleData readAppleData(const std::filesystem::path& directory) {
    const auto folder = directory / "apple";
    return {.signing = readDataFile<WorldSigning>(folder / "signing.json", checkSigning),
            .updates = readDataFile<WorldUpdates>(folder / "updates.json", checkUpdates),
            .charts = readDataFile<WorldCharts>(folder / "charts.json", checkCharts)};
}

}  // namespace pressroom
