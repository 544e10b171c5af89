#include "PressRoom/Archive/ArchiveRequestHandler.h"

#include <algorithm>
#include <charconv>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Sources/SourceCatalog.h"
#include "PressRoom/VendorService.h"
#include "PressRoom/World/Markup.h"

namespace pressroom {
namespace {

namespace json = boost::json;
using std::chrono::sys_seconds;

constexpr std::string_view kArchive = "/wp-json/tb-archive/v1/";
constexpr std::chrono::minutes kReadingTime{10};
constexpr std::int64_t kLongestPage = 100;

bool isArchived(const Item& item, sys_seconds now) { return item.appears + kReadingTime <= now; }

std::optional<std::int64_t> numberIn(const Request& request, std::string_view name) {
    const auto text = queryItem(request, name);
    std::int64_t number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool reads = read.ec == std::errc() && read.ptr == text.data() + text.size();
    return reads ? std::optional(number) : std::nullopt;
}

Response missingItem() {
    return errorAnswer(400, "rest_missing_callback_param", "A query item is missing or no number.");
}

json::value textOrNull(std::string text) {
    return text.empty() ? json::value(nullptr) : json::value(std::move(text));
}

/// Splits at the commas that are not part of an address.
std::vector<std::string> addressesIn(const Request& request) {
    const auto raw = rawQueryItem(request, "urls");
    std::vector<std::string> addresses;
    for (std::size_t begin = 0; begin < raw.size();) {
        const auto end = std::min(raw.find(',', begin), raw.size());
        addresses.push_back(kit::percentDecoded(raw.substr(begin, end - begin)));
        begin = end + 1;
    }
    return addresses;
}

}  // namespace

ArchiveRequestHandler::ArchiveRequestHandler(const PublishedWorld& world,
                                             Misbehaviours& misbehaviours)
    : world_(world),
      references_(world),
      faults_({"archive-stories", "archive-status", "archive-credits", "archive-trace"},
              misbehaviours) {
    for (const auto& source : world_.sources()) outlets_[source.id] = {.name = source.title};
    for (const auto& source : kit::defaultSourceCatalog()) {
        outlets_[source.id] = {.name = source.name,
                               .isApples = source.kind == kit::NewsSource::Kind::apple};
    }
}

std::optional<Response> ArchiveRequestHandler::answer(const Request& request,
                                                      sys_seconds now) const {
    auto path = request.path();
    if (request.host != kMakersHost || !path.starts_with(kArchive)) return std::nullopt;
    path.remove_prefix(kArchive.size());
    if (path == "stories") return stories(request, now);
    if (path == "status") return status(request, now);
    if (path == "credits") return credits(request, now);
    if (path == "trace") return trace(request, now);
    return errorAnswer(404, "rest_no_route", "No route was found matching the URL.");
}

Response ArchiveRequestHandler::stories(const Request& request, sys_seconds now) const {
    const auto after = numberIn(request, "after"), before = numberIn(request, "before");
    const auto offset = numberIn(request, "offset"), limit = numberIn(request, "limit");
    if (!after || !before || !offset || !limit || *offset < 0 || *limit < 0) return missingItem();

    std::vector<const Item*> found;
    for (const auto& source : world_.sources()) {
        for (const auto& item : world_.items(source)) {
            const auto time = item.appears.time_since_epoch().count();
            if (isArchived(item, now) && time >= *after && time < *before) found.push_back(&item);
        }
    }
    std::ranges::stable_sort(found, std::ranges::greater{}, &Item::appears);
    const auto total = static_cast<std::int64_t>(found.size());
    const auto begin = std::min(*offset, total);
    const auto end = std::min(total, begin + std::min(*limit, kLongestPage));
    json::array items;
    for (auto i = begin; i < end; ++i) items.push_back(story(*found[static_cast<std::size_t>(i)]));
    return faults_.served(
        "archive-stories", request,
        {.document = {{"total", total}, {"offset", *offset}, {"items", std::move(items)}},
         .list = "items",
         .requiredKey = "title",
         .dateKey = "published_at"});
}

json::object ArchiveRequestHandler::story(const Item& item) const {
    const bool isDayOnly = item.story->undated.value_or(false);
    const auto shown =
        isDayOnly ? std::chrono::floor<std::chrono::days>(item.appears) : item.appears;
    return {{"source", item.source->id},
            {"source_name", outlets_.at(item.source->id).name},
            {"url", item.page},
            {"title", archivedTitle(item)},
            {"published_at", isoDate(shown)},
            {"day_only", isDayOnly},
            {"author", textOrNull(item.story->author.value_or(item.source->author.value_or("")))},
            {"lead", textOrNull(item.text)},
            {"credits", creditsOf(item)}};
}

json::array ArchiveRequestHandler::creditsOf(const Item& item) const {
    json::array credits;
    for (const auto& reference : references_.of(item)) {
        const auto& outlet = outlets_.at(reference.to->source->id);
        const auto kind = archivedKind(*reference.to, outlet, "outlet");
        json::object credit{{"kind", kind},
                            {"platform", archivedPlatform(*reference.to)},
                            {"name", outlet.name},
                            {"url", reference.to->page},
                            {"detail", textOrNull(reference.words)},
                            {"posted_at", nullptr}};
        if (kind == "post") credit["posted_at"] = isoDate(reference.to->appears);
        credits.push_back(std::move(credit));
    }
    return credits;
}

Response ArchiveRequestHandler::status(const Request& request, sys_seconds now) const {
    json::array sources;
    bool isComplete = true;
    for (const auto& source : world_.sources()) {
        const auto& items = world_.items(source);
        const auto listed =
            std::ranges::count_if(items, [&](const Item& item) { return item.appears <= now; });
        const auto stored =
            std::ranges::count_if(items, [&](const Item& item) { return isArchived(item, now); });
        isComplete = isComplete && listed == stored;
        sources.push_back({{"id", source.id},
                           {"name", outlets_.at(source.id).name},
                           {"listed", listed},
                           {"stored", stored},
                           {"waiting", listed - stored}});
    }
    return faults_.served("archive-status", request,
                          {.document = {{"complete", isComplete}, {"sources", std::move(sources)}},
                           .list = "sources",
                           .requiredKey = "id",
                           .dateKey = ""});
}

Response ArchiveRequestHandler::credits(const Request& request, sys_seconds now) const {
    const auto addresses = addressesIn(request);
    if (addresses.empty()) return missingItem();
    json::object credits;
    json::array pending;
    for (const auto& address : addresses) {
        const auto* item = references_.find(address);
        if (!item || item->appears > now) continue;
        isArchived(*item, now) ? void(credits[address] = creditsOf(*item))
                               : void(pending.emplace_back(address));
    }
    return faults_.served(
        "archive-credits", request,
        {.document = {{"credits", std::move(credits)}, {"pending", std::move(pending)}},
         .list = "credits",
         .requiredKey = "name",
         .dateKey = "posted_at"});
}

Response ArchiveRequestHandler::trace(const Request& request, sys_seconds now) const {
    const auto address = queryItem(request, "url");
    if (address.empty()) return missingItem();
    const auto* item = references_.find(address);
    json::array nodes;
    if (item && item->appears <= now) nodes = TraceTree(references_, outlets_, now).nodes(*item);
    return faults_.served(
        "archive-trace", request,
        {.document = {{"url", address},
                      {"query", item ? json::value(archivedTitle(*item)) : nullptr},
                      {"nodes", std::move(nodes)},
                      {"searched", world_.sources().size()}},
         .list = "nodes",
         .requiredKey = "kind",
         .dateKey = "published_at"});
}

}  // namespace pressroom
