#include "PressRoom/Archive/TraceTree.h"

#include <algorithm>

#include "PressRoom/World/Markup.h"

namespace pressroom {

namespace json = boost::json;

std::string archivedTitle(const Item& item) { return item.story->title.value_or(item.text); }

json::value archivedPlatform(const Item& item) {
    switch (item.source->platform) {
        case Platform::bluesky: return "Bluesky";
        case Platform::mastodon: return "Mastodon";
        default: return nullptr;
    }
}

std::string_view archivedKind(const Item& item, const Outlet& outlet, std::string_view otherwise) {
    if (!archivedPlatform(item).is_null()) return "post";
    return outlet.isApples ? "apple" : otherwise;
}

json::array TraceTree::nodes(const Item& story) {
    append(originOf(story), nullptr, 0);
    return std::move(nodes_);
}

const Item& TraceTree::originOf(const Item& story) const {
    std::set<const Item*> passed;
    const auto* item = &story;
    while (passed.insert(item).second) {
        const auto references = references_.of(*item);
        if (references.empty()) break;
        item = references.front().to;
    }
    return *item;
}

void TraceTree::append(const Item& item, const Reference* reference, int depth) {
    if (item.appears > now_ || !seen_.insert(&item).second) return;
    nodes_.push_back(node(item, reference, depth));
    auto followers = references_.to(item);
    std::ranges::stable_sort(followers, {},
                             [](const Reference& follower) { return follower.from->appears; });
    for (const auto& follower : followers) append(*follower.from, &follower, depth + 1);
}

json::object TraceTree::node(const Item& item, const Reference* reference, int depth) const {
    const auto& outlet = outlets_.at(item.source->id);
    const bool isDayOnly = item.story->undated.value_or(false);
    const bool isUncertain = item.story->datedMinutesAgo.has_value();
    const auto shown =
        isDayOnly ? std::chrono::floor<std::chrono::days>(item.appears) : item.appears;
    json::object node{{"kind", archivedKind(item, outlet, "story")},
                      {"url", item.page},
                      {"title", archivedTitle(item)},
                      {"publisher", outlet.name},
                      {"published_at", nullptr},
                      {"precision", isUncertain ? "unknown"
                                    : isDayOnly ? "day"
                                                : "minute"},
                      {"readable", item.source->platform != Platform::googleNews},
                      {"relation", nullptr},
                      {"depth", depth},
                      {"note", nullptr},
                      {"platform", archivedPlatform(item)}};
    if (!isUncertain) node["published_at"] = isoDate(shown);
    if (reference) {
        node["relation"] = reference->isLink ? "linked" : "named";
        if (!reference->words.empty()) node["note"] = reference->words;
    }
    return node;
}

}  // namespace pressroom
