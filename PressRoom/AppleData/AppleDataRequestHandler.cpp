#include "PressRoom/AppleData/AppleDataRequestHandler.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include <fmt/format.h>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "PressRoom/Trackers/WorldTime.h"
#include "PressRoom/World/Markup.h"

namespace pressroom {
namespace {

namespace json = boost::json;
using std::chrono::sys_seconds;

constexpr std::string_view kSigningHost = "api.ipsw.me";
constexpr std::string_view kDevices = "/v4/device/";
constexpr std::string_view kUpdatesHost = "gdmf.apple.com";
constexpr std::string_view kUpdates = "/v2/pmv";
constexpr std::string_view kChartsHost = "rss.marketingtools.apple.com";
constexpr std::string_view kCharts = "/api/v2/us/apps/";
constexpr std::string_view kChartEnd = "/apps.json";

std::string day(sys_seconds instant) { return isoDate(instant, "Z").substr(0, 10); }

json::object firmwareOf(const WorldDevice& device, const WorldFirmware& firmware,
                        sys_seconds anchor, sys_seconds now) {
    const bool isSigned =
        !firmware.unsignedMinutesAgo || now < worldTime(anchor, *firmware.unsignedMinutesAgo);
    return {{"identifier", device.identifier},
            {"version", firmware.version},
            {"buildid", firmware.build},
            {"url", fmt::format("https://updates.cdn-apple.com/{}_{}_{}_Restore.ipsw",
                                device.identifier, firmware.version, firmware.build)},
            {"releasedate", day(worldTime(anchor, firmware.minutesAgo)) + "T00:00:00Z"},
            {"signed", isSigned}};
}

/// The sets of the catalogue. Their order, and each night the day on which they expire, are others.
json::object assetSets(const std::vector<WorldAsset>& assets, sys_seconds anchor, sys_seconds now) {
    json::object sets;
    for (const auto& asset : assets) {
        const auto posted = worldTime(anchor, asset.minutesAgo);
        const bool isGone = asset.goneMinutesAgo && now >= worldTime(anchor, *asset.goneMinutesAgo);
        if (posted > now || isGone) continue;
        json::object entry{{"ProductVersion", asset.version},
                           {"Build", asset.build},
                           {"PostingDate", day(posted)},
                           {"SupportedDevices", json::value_from(asset.devices)}};
        if (asset.expiresInDays) {
            const std::chrono::days days(std::lround(*asset.expiresInDays));
            entry["ExpirationDate"] = day(anchor + days);
        }
        auto& list = sets[asset.set];
        if (!list.is_array()) list.emplace_array();
        list.get_array().push_back(std::move(entry));
    }
    for (auto& set : sets) {
        auto& list = set.value().get_array();
        const auto first = now.time_since_epoch().count() % static_cast<long>(list.size());
        std::ranges::rotate(list, list.begin() + first);
    }
    return sets;
}

/// The apps in their order after the moves until now.
std::vector<WorldApp> ranked(const WorldChart& chart, sys_seconds anchor, sys_seconds now) {
    auto apps = chart.apps;
    for (const auto& move : chart.moves) {
        if (worldTime(anchor, move.minutesAgo) > now) break;
        const auto app = std::ranges::find(apps, move.app, &WorldApp::id);
        const auto place = apps.begin() + (std::lround(move.rank) - 1);
        if (app < place) {
            std::rotate(app, app + 1, place + 1);
        } else {
            std::rotate(place, app, app + 1);
        }
    }
    return apps;
}

json::object resultOf(const WorldApp& app) {
    return {{"artistName", app.developer},
            {"id", app.id},
            {"name", app.name},
            {"releaseDate", "2024-03-21"},
            {"kind", "apps"},
            {"artworkUrl100",
             fmt::format("https://is1-ssl.mzstatic.com/image/thumb/{}/100x100bb.png", app.id)},
            {"genres", json::array{}},
            {"url", fmt::format("https://apps.apple.com/us/app/id{}", app.id)}};
}

}  // namespace

AppleDataRequestHandler::AppleDataRequestHandler(AppleData files, sys_seconds anchor,
                                                 Misbehaviours& misbehaviours)
    : files_(std::move(files)),
      anchor_(anchor),
      faults_({"signing", "updates", "charts"}, misbehaviours) {}

std::optional<Response> AppleDataRequestHandler::answer(const Request& request,
                                                        sys_seconds now) const {
    if (request.host == kSigningHost) return signing(request, now);
    if (request.host == kUpdatesHost) return updates(request, now);
    if (request.host == kChartsHost) return chart(request, now);
    return std::nullopt;
}

std::optional<Response> AppleDataRequestHandler::signing(const Request& request,
                                                         sys_seconds now) const {
    auto path = request.path();
    if (!path.starts_with(kDevices)) return std::nullopt;
    path.remove_prefix(kDevices.size());
    const auto& [systems, devices] = files_.signing;
    const auto device =
        std::ranges::find(devices, kit::percentDecoded(path), &WorldDevice::identifier);
    if (device == devices.end()) return std::nullopt;
    const auto system = std::ranges::find(systems, device->system, &WorldSystem::system);
    json::array firmwares;
    for (const auto& firmware : system->firmwares) {
        if (worldTime(anchor_, firmware.minutesAgo) > now) continue;
        firmwares.push_back(firmwareOf(*device, firmware, anchor_, now));
    }
    json::object document{{"name", device->name},
                          {"identifier", device->identifier},
                          {"firmwares", std::move(firmwares)}};
    return faults_.served("signing", request,
                          {std::move(document), "firmwares", "buildid", "releasedate"});
}

std::optional<Response> AppleDataRequestHandler::updates(const Request& request,
                                                         sys_seconds now) const {
    if (request.path() != kUpdates) return std::nullopt;
    // Sets and what is in them change places from answer to answer.
    json::object document;
    const auto turn = now.time_since_epoch().count();
    const auto add = [&](const char* name, const std::vector<WorldAsset>& assets) {
        document[name] = assetSets(assets, anchor_, now);
    };
    if (turn % 2 == 0) add("PublicBackgroundSecurityImprovements", files_.updates.improvements);
    add("PublicAssetSets", files_.updates.assets);
    add("AssetSets", files_.updates.managed);
    if (turn % 2 == 1) add("PublicBackgroundSecurityImprovements", files_.updates.improvements);
    return faults_.served("updates", request,
                          {std::move(document), "PublicAssetSets", "Build", "PostingDate"});
}
std::optional<Response> AppleDataRequestHandler::chart(const Request& request,
                                                       sys_seconds now) const {
    auto path = request.path();
    if (!path.starts_with(kCharts) || !path.ends_with(kChartEnd)) return std::nullopt;
    path.remove_prefix(kCharts.size());
    path.remove_suffix(kChartEnd.size());
    const auto kind = path.substr(0, path.find('/'));
    const auto chart = std::ranges::find(files_.charts.charts, kind, &WorldChart::kind);
    if (chart == files_.charts.charts.end() || kind.size() == path.size()) return std::nullopt;
    const auto number = path.substr(kind.size() + 1);
    std::size_t wanted = 0;
    std::from_chars(number.data(), number.data() + number.size(), wanted);
    auto apps = ranked(*chart, anchor_, now);
    apps.resize(std::min(apps.size(), wanted));
    json::array results;
    for (const auto& app : apps) results.push_back(resultOf(app));
    json::object feed{{"title", chart->kind},
                      {"country", "us"},
                      {"updated", isoDate(anchor_, "Z")},
                      {"results", std::move(results)}};
    json::object document{{"feed", std::move(feed)}};
    return faults_.served("charts", request,
                          {std::move(document), "results", "artistName", "releaseDate"});
}

}  // namespace pressroom
