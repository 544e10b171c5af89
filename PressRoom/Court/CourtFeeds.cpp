#include "PressRoom/Court/CourtFeeds.h"

#include <algorithm>
#include <ranges>
#include <vector>

#include <boost/json.hpp>
#include <fmt/format.h>

#include "PressRoom/Trackers/WorldTime.h"
#include "PressRoom/World/Markup.h"

namespace pressroom {
namespace {

namespace json = boost::json;
using std::chrono::sys_seconds;

constexpr std::size_t kDocketFeedItems = 30;
constexpr std::size_t kWireItems = 20;
constexpr std::size_t kResultsOnPage = 2;
constexpr std::chrono::hours kCourtLooksBack{24};
constexpr std::chrono::minutes kCourtBuilds{20};

/// "2026-11-20T00:00:00-08:00": the day in California.
std::string pacificMidnight(sys_seconds instant) {
    return isoDate(instant - std::chrono::hours(8), "").substr(0, 10) + "T00:00:00-08:00";
}

long numberOf(const WorldDocketEntry& entry) { return std::lround(entry.number.value_or(0)); }

std::string caseTitle(const WorldDocket& docket) { return docket.name + ", " + docket.number; }

std::string pacerDocument(const WorldDocket& docket, const WorldDocketEntry& entry) {
    return fmt::format("https://ecf.{}.uscourts.gov/doc1/0351{}{:04}", docket.court,
                       docket.pacerCase, numberOf(entry));
}

std::string enclosureOf(const WorldDocket& docket, const WorldDocketEntry& entry,
                        sys_seconds anchor, sys_seconds now) {
    if (!entry.number) return {};
    const bool isFree = entry.freeMinutesAgo && worldTime(anchor, *entry.freeMinutesAgo) <= now;
    const auto archive = fmt::format("gov.uscourts.{}.{}", docket.court, docket.pacerCase);
    const auto address =
        isFree ? fmt::format("https://storage.courtlistener.com/recap/{0}/{0}.{1}.0.pdf", archive,
                             numberOf(entry))
               : pacerDocument(docket, entry);
    return fmt::format(
        "<link href=\"{}\" length=\"0\" rel=\"enclosure\" type=\"application/pdf\"/>",
        escaped(address));
}

std::string docketItem(const WorldDocket& docket, const WorldDocketEntry& entry, sys_seconds anchor,
                       sys_seconds now) {
    const auto filed = worldTime(anchor, entry.minutesAgo);
    const bool hasText = !entry.textMinutesAgo || worldTime(anchor, *entry.textMinutesAgo) <= now;
    const auto preface = entry.number ? fmt::format("Entry #{}", numberOf(entry))
                                      : "Minute entry from " + pacificMidnight(filed).substr(0, 10);
    const auto anchorName =
        entry.number ? fmt::format("entry-{}", numberOf(entry))
                     : fmt::format("minute-entry-{}", std::lround(100'000 - entry.minutesAgo));
    const auto link = fmt::format("https://www.courtlistener.com/docket/{}/{}/?order_by=desc#{}",
                                  docket.docket, docket.slug, anchorName);
    return fmt::format(
        "<entry>{}<link href=\"{}\" rel=\"alternate\"/><published>{}</published><updated>{}"
        "</updated><author><name>Free Law Project</name></author>{}<summary type=\"html\">{}"
        "</summary>{}</entry>",
        element("title", preface + " in " + caseTitle(docket)), escaped(link),
        pacificMidnight(filed), pacificMidnight(filed), element("id", link),
        escaped(hasText ? entry.text : entry.events.front()),
        enclosureOf(docket, entry, anchor, now));
}

/// An item for each event; its guid is that of the entry.
std::string courtItems(const WorldDocket& docket, const WorldDocketEntry& entry,
                       sys_seconds filed) {
    const auto report = fmt::format("https://ecf.{}.uscourts.gov/cgi-bin/DktRpt.pl?{}",
                                    docket.court, docket.pacerCase);
    std::string items;
    for (const auto& event : entry.events) {
        auto description = fmt::format("[{}] ", event);
        if (entry.number) {
            description += fmt::format("(<a href=\"{}\" >{}</a>)", pacerDocument(docket, entry),
                                       numberOf(entry));
        }
        // Courts escape names once more than they need to.
        items += fmt::format(
            "<item>{}{}{}<guid isPermaLink=\"true\">{}</guid>{}</item>\n",
            element("title", docket.number + " " + escaped(docket.name)), element("link", report),
            element("description", description),
            escaped(fmt::format("{}&{}", report, std::lround(100'000 - entry.minutesAgo))),
            element("pubDate", mailDate(filed)));
    }
    return items;
}

std::string wireItem(const WorldPressRelease& release, std::string_view wire,
                     sys_seconds published) {
    const bool isGlobe = wire == "globenewswire";
    const auto link =
        isGlobe ? fmt::format("https://www.globenewswire.com/news-release/2026/11/{}/0/en/{}.html",
                              release.id, release.id)
                : fmt::format("https://www.prnewswire.com/news-releases/{}.html", release.id);
    std::string item = "<item>" + element("title", release.title) + element("link", link) +
                       element("guid", link) + element("pubDate", mailDate(published));
    if (isGlobe && release.symbol) {
        item += fmt::format(
            "<category domain=\"https://www.globenewswire.com/rss/stock\">{}"
            "</category>",
            escaped(*release.symbol));
    }
    if (isGlobe) item += element("dc:contributor", release.company);
    return item + element("description", "<p>" + escaped(release.text) + "</p>") + "</item>\n";
}

}  // namespace

std::string docketDocument(const WorldDocket& docket, sys_seconds anchor, sys_seconds now) {
    std::string items;
    std::size_t count = 0;
    std::string updated = pacificMidnight(now);
    for (const auto& entry : std::views::reverse(docket.entries)) {
        const auto filed = worldTime(anchor, entry.minutesAgo);
        if (filed > now) continue;
        if (count++ == 0) updated = pacificMidnight(filed);
        if (count > kDocketFeedItems) break;
        items += docketItem(docket, entry, anchor, now);
    }
    return fmt::format(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<feed xmlns=\"http://www.w3.org/2005/Atom\" "
        "xml:lang=\"en-us\">{}<link href=\"https://www.courtlistener.com/\" rel=\"alternate\"/>"
        "<updated>{}</updated>{}</feed>\n",
        element("title", "Docket updates for " + caseTitle(docket)), updated, items);
}

std::string searchDocument(const WorldDockets& world, std::size_t page, sys_seconds anchor,
                           sys_seconds now) {
    std::vector<const WorldDocket*> begun;
    for (const auto& docket : world.dockets) {
        if (worldTime(anchor, docket.entries.front().minutesAgo) <= now) begun.push_back(&docket);
    }
    std::ranges::stable_sort(
        begun, {}, [](const WorldDocket* docket) { return docket->entries.front().minutesAgo; });
    json::array results;
    for (const auto* docket : begun) {
        const auto filed = worldTime(anchor, docket->entries.front().minutesAgo);
        results.push_back(
            {{"docket_id", std::stoll(docket->docket)},
             {"court_id", docket->court},
             {"court", "District Court, " + docket->court},
             {"docketNumber", docket->number},
             {"caseName", docket->name},
             {"dateFiled", pacificMidnight(filed).substr(0, 10)},
             {"dateTerminated", nullptr},
             {"cause", docket->cause},
             {"suitNature", ""},
             {"assignedTo", "M. Ferrow"},
             {"party", json::value_from(docket->parties)},
             {"docket_absolute_url", fmt::format("/docket/{}/{}/", docket->docket, docket->slug)},
             {"meta", json::object{{"more_docs", false}}},
             {"recap_documents", json::array{}}});
    }
    const auto count = results.size();
    const auto begin = std::min((page - 1) * kResultsOnPage, count);
    const auto end = std::min(begin + kResultsOnPage, count);
    json::value next;
    if (end < count)
        next = fmt::format("https://www.courtlistener.com/api/rest/v4/search/?type=r&cursor={}",
                           page + 1);
    results.erase(results.begin() + static_cast<std::ptrdiff_t>(end), results.end());
    results.erase(results.begin(), results.begin() + static_cast<std::ptrdiff_t>(begin));
    return json::serialize(json::object{{"count", count},
                                        {"document_count", 0},
                                        {"next", next},
                                        {"previous", nullptr},
                                        {"results", std::move(results)}});
}

bool hasCourt(const WorldDockets& world, std::string_view court) {
    return std::ranges::any_of(world.dockets,
                               [&](const WorldDocket& docket) { return docket.court == court; });
}

std::string courtDocument(const WorldDockets& world, std::string_view court, sys_seconds anchor,
                          sys_seconds now) {
    const auto sinceAnchor = now - anchor;
    const auto built = anchor + sinceAnchor / kCourtBuilds * kCourtBuilds;
    std::string items;
    for (const auto& docket : world.dockets) {
        if (docket.court != court) continue;
        for (const auto& entry : docket.entries) {
            const auto filed = worldTime(anchor, entry.minutesAgo);
            if (filed > built || filed < built - kCourtLooksBack) continue;
            items += courtItems(docket, entry, filed);
        }
    }
    return fmt::format(
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<rss version=\"2.0\">\n<channel>\n"
        "<title>Recent Entries</title><link>https://ecf.{}.uscourts.gov</link>\n"
        "<description>Docket entries of type: answer,cmp,order,motion</description>{}\n"
        "{}</channel>\n</rss>\n",
        court, element("lastBuildDate", mailDate(built)), items);
}

std::string wireDocument(const WorldPress& world, std::string_view wire, std::string_view title,
                         sys_seconds anchor, sys_seconds now) {
    std::vector<const WorldPressRelease*> shown;
    for (const auto& release : world.releases) {
        const bool isHere = std::ranges::find(release.wires, wire) != release.wires.end();
        if (isHere && worldTime(anchor, release.minutesAgo) <= now) shown.push_back(&release);
    }
    std::ranges::stable_sort(shown, {}, &WorldPressRelease::minutesAgo);
    if (shown.size() > kWireItems) shown.resize(kWireItems);
    std::string items;
    for (const auto* release : shown)
        items += wireItem(*release, wire, worldTime(anchor, release->minutesAgo));
    return fmt::format(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<rss "
        "xmlns:dc=\"http://purl.org/dc/elements/1.1/\" version=\"2.0\"><channel>{}\n{}</channel>"
        "</rss>\n",
        element("title", title), items);
}

}  // namespace pressroom
