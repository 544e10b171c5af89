#include "PressRoom/World/MisbehavingFeed.h"

#include <array>

#include <fmt/format.h>

#include "PressRoom/RequestHandler.h"
#include "PressRoom/Server/Conditional.h"
#include "PressRoom/World/Markup.h"
#include "PressRoom/World/Platforms/Fragments.h"
#include "PressRoom/World/Platforms/Platforms.h"

namespace pressroom {
namespace {

using Kind = MisbehaviourKind;

// Below the limit of six megabytes that readers accept.
constexpr std::size_t hugeSize = 5 * 1024 * 1024;
constexpr std::size_t republishedItems = 500;

struct FeedItem {
    std::string title;
    std::string link;
    std::optional<std::chrono::sys_seconds> dated;
    std::string html;
    bool hasGuid = true;
};

std::string itemXML(const FeedItem& item) {
    std::string xml = "<item>\n" + element("title", item.title) + element("link", item.link);
    if (item.hasGuid) xml += element("guid", item.link);
    if (item.dated) xml += element("pubDate", mailDate(*item.dated));
    return xml + element("description", item.html) + "</item>\n";
}

std::string document(const Edition& edition, const std::vector<FeedItem>& items) {
    auto xml = rssOpening(edition, mediaNamespace);
    for (const auto& item : items) xml += itemXML(item);
    return xml.append(rssClosing);
}

std::vector<FeedItem> usualItems(const Edition& edition) {
    std::vector<FeedItem> items;
    for (const auto& entry : edition.entries) {
        items.push_back({.title = entry.title.empty() ? entry.item->text : entry.title,
                         .link = entry.item->link,
                         .dated = entry.dated,
                         .html = entry.body()});
    }
    return items;
}

/// An invented item, the same for the same number.
FeedItem inventedItem(const Edition& edition, std::string_view folder, std::size_t number) {
    constexpr std::array subjects{"iPad", "Mac", "iPhone", "Watch", "HomePad", "AirPods", "Vision"};
    constexpr std::array turns{"spare parts cost less", "cases arrive in moss green",
                               "batteries last a day longer", "repairs move to the high street"};
    const auto title = fmt::format("Apple {} {} in district {}", subjects[number % subjects.size()],
                                   turns[number / subjects.size() % turns.size()], number);
    return {.title = title,
            .link = fmt::format("{}/{}/{}", edition.source->home, folder, number),
            .dated = std::nullopt,
            .html = "<p>" + title + ", a shop assistant said.</p>"};
}

std::string hugeDocument(const Edition& edition) {
    auto xml = rssOpening(edition, mediaNamespace);
    for (std::size_t number = 0; xml.size() < hugeSize; ++number) {
        auto item = inventedItem(edition, "everything", number);
        item.dated = edition.changed - std::chrono::minutes(number);
        for (int line = 0; line < 12; ++line) {
            item.html += fmt::format("<p>Line {} of the long account of it.</p>", line);
        }
        xml += itemXML(item);
    }
    return xml.append(rssClosing);
}

/// Every second item gets a session in its query, the others a changed slug.
std::vector<FeedItem> rotated(std::vector<FeedItem> items, std::size_t fetch) {
    for (std::size_t i = 0; i < items.size(); ++i) {
        auto& link = items[i].link;
        if (i % 2 == 0) {
            link += fmt::format("{}session={:x}", link.find('?') == link.npos ? '?' : '&',
                                fetch * 7919 + i);
        } else {
            const auto pathEnd = std::min(link.find('?'), link.size());
            const bool closed = link[pathEnd - 1] == '/';
            link.insert(closed ? pathEnd - 1 : pathEnd, fmt::format("-{}", fetch));
        }
    }
    return items;
}

std::vector<FeedItem> retitled(std::vector<FeedItem> items, std::size_t fetch) {
    for (std::size_t i = 0; i < items.size(); ++i) {
        items[i].title += fmt::format(" ({} comments)", fetch * 3 + i);
    }
    return items;
}

std::vector<FeedItem> underOneLink(std::vector<FeedItem> items, const Edition& edition) {
    for (auto& item : items) {
        item.link = edition.source->home;
        item.hasGuid = false;
    }
    return items;
}

/// From the second fetch on, the archive comes first, dated within the hour.
std::vector<FeedItem> withArchive(std::vector<FeedItem> items, const Edition& edition,
                                  std::size_t fetch, std::chrono::sys_seconds now) {
    if (fetch < 2) return items;
    std::vector<FeedItem> all;
    for (std::size_t number = 0; number < republishedItems; ++number) {
        all.push_back(inventedItem(edition, "moved", number));
        all.back().dated =
            std::chrono::floor<std::chrono::hours>(now) - std::chrono::seconds(number);
    }
    all.insert(all.end(), items.begin(), items.end());
    return all;
}

std::vector<FeedItem> half(std::vector<FeedItem> items) {
    items.resize(items.size() / 2);
    return items;
}

std::vector<FeedItem> withoutTitleAndLink(std::vector<FeedItem> items) {
    for (auto& item : items) {
        item.title.clear();
        item.link.clear();
        item.hasGuid = false;
    }
    return items;
}

std::vector<FeedItem> undated(std::vector<FeedItem> items) {
    for (auto& item : items) item.dated.reset();
    return items;
}

std::vector<FeedItem> toCome(std::vector<FeedItem> items, std::chrono::sys_seconds now) {
    const auto first = std::chrono::floor<std::chrono::days>(now) + std::chrono::days(2);
    for (std::size_t i = 0; i < items.size(); ++i) {
        items[i].dated = first + std::chrono::hours(i);
    }
    return items;
}

Response feed(const Request& request, std::string xml, std::chrono::sys_seconds changed) {
    return answerConditionally(request, {.body = std::move(xml),
                                         .contentType = feedContentType(Platform::rss),
                                         .lastModified = changed});
}

Response refusal(int status, const Edition& edition, std::int64_t retryAfter) {
    auto response = htmlPage(status, edition.source->title, "<p>Please come back later.</p>");
    response.headers.emplace_back("Retry-After", std::to_string(retryAfter));
    return response;
}

}  // namespace

Response MisbehavingFeed::answer(const Request& request, const Edition& edition,
                                 std::chrono::sys_seconds now) {
    const auto fetch = ++fetches_;
    const auto items = usualItems(edition);
    const auto serve = [&](const std::vector<FeedItem>& shown) {
        return feed(request, document(edition, shown), edition.changed);
    };
    switch (misbehaviour_.kind) {
        case Kind::silent: return {.delivery = {.neverAnswers = true}};
        case Kind::busy: return refusal(429, edition, misbehaviour_.amount);
        case Kind::unavailable: return refusal(503, edition, misbehaviour_.amount);
        case Kind::page: return htmlPage(200, edition.source->title, "<p>Sign in to go on.</p>");
        case Kind::missing: return htmlPage(404, "Not found", "<p>This feed has gone.</p>");
        case Kind::empty: return serve({});
        case Kind::partial: return serve(half(items));
        case Kind::incomplete: return serve(withoutTitleAndLink(items));
        case Kind::huge: return feed(request, hugeDocument(edition), edition.changed);
        case Kind::broken: {
            auto xml = document(edition, items);
            xml.resize(xml.size() / 2);
            return feed(request, std::move(xml), edition.changed);
        }
        case Kind::slow: {
            auto response = serve(items);
            response.delivery.delay = std::chrono::milliseconds(misbehaviour_.amount);
            return response;
        }
        case Kind::rotating: return serve(rotated(items, fetch));
        case Kind::retitled: return serve(retitled(items, fetch));
        case Kind::samelink: return serve(underOneLink(items, edition));
        case Kind::republished: return serve(withArchive(items, edition, fetch, now));
        case Kind::undated: return serve(undated(items));
        case Kind::future: return serve(toCome(items, now));
        case Kind::undeclared:
        case Kind::threshold: return htmlPage(403, "Forbidden", "<p>You may not read this.</p>");
    }
    return {};
}

}  // namespace pressroom
