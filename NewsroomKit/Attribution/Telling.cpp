#include "NewsroomKit/Attribution/Telling.h"

#include <algorithm>
#include <chrono>
#include <map>
#include <set>

#include "NewsroomKit/Attribution/TellingOutlet.h"
#include "NewsroomKit/Stories/CanonicalLink.h"
#include "NewsroomKit/Text/Folding.h"

namespace kit {

namespace {

/// What a cluster's stories are about, for finding the same in the archive.
struct KnownArticles {
    std::set<std::string> links{};
    std::set<std::string> titles{};  ///< folded

    static KnownArticles of(std::span<const Story* const> stories) {
        KnownArticles known;
        for (const auto* story : stories) {
            known.links.insert(story->link);
            if (story->articleLink) known.links.insert(canonicalLink(*story->articleLink));
            known.titles.insert(fold(story->title));
            for (const auto& credit : story->credits) {
                if (credit.url && credit.detail) known.links.insert(canonicalLink(*credit.url));
            }
        }
        return known;
    }

    bool have(const ArchivedStory& item) const {
        return links.contains(canonicalLink(item.url)) || titles.contains(fold(item.title));
    }
};

/// Kinds that collect the news of others.
bool isCollection(StoryKind kind) {
    return kind == StoryKind::roundup || kind == StoryKind::sponsored ||
           kind == StoryKind::advertisement;
}

/// The credits that have words of their own and name another outlet.
template <class Credits, class Outlet>
std::vector<Telling::Credit> citedCredits(const Credits& credits, const std::string& own,
                                          Outlet outletOf) {
    std::vector<Telling::Credit> cited;
    for (const auto& credit : credits) {
        if (!credit.detail || credit.detail->empty()) continue;
        auto outlet = outletOf(credit);
        if (outlet.empty() || outletKey(outlet) == own) continue;
        cited.push_back({.outlet = std::move(outlet), .isLinked = credit.url.has_value()});
    }
    return cited;
}

/// A link to another member's article shows that it was there before, whatever words carry it.
bool linksToMember(const Story& story, const std::map<std::string, std::string>& outletOfLink,
                   const std::string& own) {
    return std::ranges::any_of(story.credits, [&](const SourceCredit& credit) {
        if (!credit.url) return false;
        const auto member = outletOfLink.find(canonicalLink(*credit.url));
        return member != outletOfLink.end() && member->second != own;
    });
}

Telling tellingOf(const Story& story, const std::map<std::string, std::string>& outletOfLink) {
    Telling telling{.outlet = tellingOutlet(story),
                    .at = story.publishedAt,
                    .isDayOnly = isDayStamp(story.publishedAt),
                    .basis = Attribution::Basis::time,
                    .story = &story};
    telling.key = outletKey(telling.outlet);
    telling.credits = citedCredits(story.credits, telling.key, creditedOutlet);
    telling.isSecondHand = !telling.credits.empty() || isCollection(story.kind) ||
                           isSecondHandTitle(story.title, telling.outlet) ||
                           linksToMember(story, outletOfLink, telling.key);
    return telling;
}

Telling tellingOf(const ArchivedStory& item) {
    Telling telling{.outlet = outletOfPage(item.sourceName, item.url),
                    .at = item.publishedAt,
                    .isDayOnly = item.isDayOnly() || isDayStamp(item.publishedAt),
                    .basis = Attribution::Basis::archive};
    if (item.isDayOnly()) telling.at = std::chrono::floor<std::chrono::days>(item.publishedAt);
    telling.key = outletKey(telling.outlet);
    telling.credits =
        citedCredits(item.credits.value_or(std::vector<ServerCredit>()), telling.key,
                     [](const ServerCredit& credit) {
                         SourceCredit read{.platform = credit.platform, .name = credit.name};
                         if (const auto kind = enumFromRaw<SourceCredit::Kind>(credit.kind))
                             read.kind = *kind;
                         return creditedOutlet(read);
                     });
    telling.isSecondHand =
        !telling.credits.empty() || isSecondHandTitle(item.title, telling.outlet);
    return telling;
}

std::optional<Telling> tellingOf(const TraceNode& node) {
    if (node.kind == "post" || !node.publishedAt) return std::nullopt;
    if (node.precision != TraceNode::Precision::minute) return std::nullopt;
    Telling telling{.outlet = node.kind == "apple"
                                  ? std::string(kAppleOutlet)
                                  : outletOfPage(node.publisher.value_or(""), node.url),
                    .at = *node.publishedAt,
                    .basis = Attribution::Basis::trace};
    if (telling.outlet.empty()) return std::nullopt;
    telling.key = outletKey(telling.outlet);
    return telling;
}

/// Adds the archive's items that are on the cluster's articles.
void addArchive(const AttributionEvidence& evidence, std::vector<Telling>& tellings) {
    const auto known = KnownArticles::of(evidence.stories);
    for (const auto& item : evidence.archive) {
        if (known.have(item)) tellings.push_back(tellingOf(item));
    }
}

/// The services' copy of a story may lack the words by which the wire's story credits another
/// outlet.
void markCopies(std::vector<Telling>& tellings) {
    std::set<std::string> secondHand, own;
    for (const auto& telling : tellings) {
        if (telling.story) (telling.isSecondHand ? secondHand : own).insert(telling.key);
    }
    for (auto& telling : tellings) {
        if (!telling.story && secondHand.contains(telling.key) && !own.contains(telling.key))
            telling.isSecondHand = true;
    }
}

}  // namespace

bool isDayStamp(Instant instant) {
    using std::chrono::hours;
    const auto sinceMidnight = instant - std::chrono::floor<std::chrono::days>(instant);
    for (const auto hour : {hours(0), hours(4), hours(5), hours(7), hours(8)}) {
        if (sinceMidnight == hour) return true;
    }
    return false;
}

bool isFirstHand(const Story& story) {
    return !isLinkPost(story) && !tellingOf(story, {}).isSecondHand;
}

std::vector<Telling> tellingsOf(const AttributionEvidence& evidence) {
    std::map<std::string, std::string> outletOfLink;
    for (const auto* story : evidence.stories) {
        if (!isLinkPost(*story))
            outletOfLink.emplace(story->link, outletKey(tellingOutlet(*story)));
    }
    std::vector<Telling> tellings;
    for (const auto* story : evidence.stories) {
        if (!isLinkPost(*story)) tellings.push_back(tellingOf(*story, outletOfLink));
    }
    addArchive(evidence, tellings);
    for (const auto& trace : evidence.traces) {
        for (const auto& node : trace.nodes) {
            if (auto telling = tellingOf(node)) tellings.push_back(std::move(*telling));
        }
    }
    markCopies(tellings);
    return tellings;
}

}  // namespace kit
