#include "NewsroomKit/Feeds/FeedTree.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "NewsroomKit/Feeds/XMLSanitizer.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

bool isItem(const XMLElement& element) {
    return equalsLowercase(element.name, "item") || equalsLowercase(element.name, "entry");
}

/// Moves the items among the children of an element.
void takeItems(XMLElement& parent, FeedTree& feed) {
    const auto rest = std::ranges::stable_partition(
        parent.children, [](const XMLElement& child) { return !isItem(child); });
    const auto room = feedTreeItemLimit - feed.items.size();
    feed.reachedLimit = rest.size() > room;
    const auto count = static_cast<std::ptrdiff_t>(std::min(rest.size(), room));
    std::move(rest.begin(), rest.begin() + count, std::back_inserter(feed.items));
    parent.children.erase(rest.begin(), rest.end());
}

}  // namespace

std::optional<FeedTree> feedTree(XMLElement root) {
    FeedTree feed;
    if (equalsLowercase(root.name, "feed")) {
        feed.isAtom = true;
        takeItems(root, feed);
        feed.channel = std::move(root);
        return feed;
    }
    if (!equalsLowercase(root.name, "rss") && !equalsLowercase(root.name, "rdf")) {
        return std::nullopt;
    }
    // RSS 1.0 has its items beside the channel.
    takeItems(root, feed);
    const auto channel = std::ranges::find_if(root.children, [](const XMLElement& child) {
        return equalsLowercase(child.name, "channel");
    });
    if (channel != root.children.end()) {
        takeItems(*channel, feed);
        feed.channel = std::move(*channel);
    }
    return feed;
}

boost::outcome_v2::unchecked<FeedTree, FeedParserError> parseFeedTree(std::string_view bytes,
                                                                      const WorkLimit& limit) {
    auto root = parseXMLTree(bytes, limit);
    if (!root) {
        return isMeantAsFeed(bytes) ? FeedParserError::malformed : FeedParserError::notAFeed;
    }
    auto feed = feedTree(std::move(*root));
    if (!feed) return FeedParserError::notAFeed;
    return std::move(*feed);
}

std::string_view pageLink(const XMLElement& item) {
    for (const auto& element : item.children) {
        if (element.name != "link") continue;
        const auto address = element.attribute("href");
        const auto relation = element.attribute("rel");
        if (address.empty()) {
            const auto text = trimWhitespaceAndNewlines(element.text);
            if (!text.empty()) return text;
        } else if (relation.empty() || equalsLowercase(relation, "alternate")) {
            return address;
        }
    }
    return {};
}

}  // namespace kit
