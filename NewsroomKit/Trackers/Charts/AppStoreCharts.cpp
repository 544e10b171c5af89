#include "NewsroomKit/Trackers/Charts/AppStoreCharts.h"

#include "NewsroomKit/Addresses/URLRepair.h"
#include "NewsroomKit/Addresses/WebAddress.h"

namespace kit {

namespace {

std::optional<std::string> addressIn(std::string_view text) {
    return WebAddress::parse(text) ? strictAddress(text) : std::nullopt;
}

}  // namespace

std::vector<ChartEntry> AppStoreCharts::parse(std::string_view body) {
    auto file = decode<Feed>(parseJSON(body));
    std::vector<ChartEntry> entries;
    entries.reserve(file.feed.results.size());
    for (auto& app : file.feed.results) {
        entries.push_back({.rank = static_cast<std::int64_t>(entries.size()) + 1,
                           .name = std::move(app.name),
                           .developer = std::move(app.artistName),
                           .url = addressIn(app.url),
                           .artwork = addressIn(app.artworkUrl100),
                           .id = std::move(app.id)});
    }
    return entries;
}

}  // namespace kit
