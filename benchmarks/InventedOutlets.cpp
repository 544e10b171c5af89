#include "benchmarks/InventedOutlets.h"

#include <chrono>

#include <fmt/chrono.h>
#include <fmt/format.h>

#include "Tarnwick_Brell/Desk/SourceRegistry.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace outlets {

kit::Instant now() {
    return std::chrono::floor<std::chrono::microseconds>(std::chrono::system_clock::now());
}

std::string host(std::size_t outlet) { return fmt::format("h{}.example", outlet); }

std::string feed(std::size_t outlet, std::size_t round, std::size_t stories) {
    std::string text = "<rss><channel><title>H</title>";
    for (std::size_t i = 0; i < stories; ++i) {
        text += fmt::format(
            "<item><title>Item {0} of outlet {1} in round {2}</title>"
            "<link>https://{3}/{2}/{0}</link><description>Words about item {0} of outlet {1}, as "
            "an outlet would write them, with a second clause for length.</description>"
            "<pubDate>{4:%a, %d %b %Y %H:%M:%S} GMT</pubDate></item>",
            i, outlet, round, host(outlet),
            std::chrono::floor<std::chrono::seconds>(now()) - std::chrono::minutes(i * 3 + outlet));
    }
    return text + "</channel></rss>";
}

void makeOnlySources(const std::filesystem::path& library, std::size_t count) {
    app::LocalStore store(library, app::Database::Access::readWrite);
    app::SourceRegistry registry(store.sources());
    auto transaction = store.transaction();
    for (const auto& source : registry.sources()) store.sources().setEnabled(source.id, false);
    for (std::size_t i = 0; i < count; ++i) {
        kit::NewsSource source{.id = host(i), .name = host(i)};
        source.feedURL = source.siteURL = "https://" + host(i) + "/feed";
        source.enabledByDefault = true;
        if (!registry.find(source.id)) store.sources().add(source);
        store.sources().setEnabled(source.id, true);
        store.sources().setStatus(source.id, {.lastSuccess = now()});
    }
    transaction.commit();
}

}  // namespace outlets
