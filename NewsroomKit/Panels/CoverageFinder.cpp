#include "NewsroomKit/Panels/CoverageFinder.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>

#include "NewsroomKit/Attribution/TellingOutlet.h"
#include "NewsroomKit/Clusters/StoryClusterer.h"
#include "NewsroomKit/Stories/CanonicalLink.h"
#include "NewsroomKit/Text/Folding.h"

namespace kit {

namespace {

/// A key that no story on the wire has as its id.
std::string archiveID(const std::string& link) { return "archive|" + link; }

Story storyOf(const ArchivedStory& item) {
    const auto link = canonicalLink(item.url);
    return {.id = archiveID(link),
            .link = link,
            .title = item.title,
            .summary = item.lead.value_or(""),
            .publishedAt = item.publishedAt,
            .sourceID = item.source,
            .sourceName = item.sourceName};
}

/// The archive's stories, by link, that a clusterer puts together with those on the wire.
std::set<std::string> relatedLinks(std::span<const Story* const> stories,
                                   std::span<const ArchivedStory> archive) {
    std::vector<Story> all;
    std::set<std::string> wire;
    for (const auto* story : stories) {
        all.push_back(*story);
        wire.insert(story->id);
    }
    for (const auto& item : archive) all.push_back(storyOf(item));
    StoryClusterer clusterer;
    clusterer.add(all);
    std::set<std::string> related;
    for (const auto& cluster : clusterer.clusters()) {
        const bool isSame = std::ranges::any_of(cluster.storyIDs,
                                                [&](const auto& id) { return wire.contains(id); });
        if (isSame) related.insert(cluster.storyIDs.begin(), cluster.storyIDs.end());
    }
    return related;
}

template <class Credits, class Name>
std::vector<std::string> creditNames(const Credits& credits, Name name) {
    std::vector<std::string> names;
    for (const auto& credit : credits) {
        auto shown = name(credit);
        if (credit.detail && std::ranges::find(names, shown) == names.end())
            names.push_back(std::move(shown));
    }
    return names;
}

CoverageItem itemOf(const Story& story) {
    return {.outlet = tellingOutlet(story),
            .title = story.title,
            .url = story.articleLink.value_or(story.link),
            .at = story.publishedAt,
            .isDayOnly = isDayStamp(story.publishedAt),
            .storyID = story.id,
            .credits = creditNames(story.credits, creditedOutlet)};
}

CoverageItem itemOf(const ArchivedStory& item) {
    return {.outlet = outletOfPage(item.sourceName, item.url),
            .title = item.title,
            .url = item.url,
            .at = item.publishedAt,
            .isDayOnly = item.isDayOnly() || isDayStamp(item.publishedAt),
            .credits = creditNames(
                item.credits.value_or(std::vector<ServerCredit>()),
                [](const ServerCredit& credit) { return shownOutletName(credit.name); })};
}

/// Adds the credits that only the archive has read.
void mergeCredits(CoverageItem& item, const CoverageItem& copy) {
    for (const auto& name : copy.credits) {
        if (std::ranges::find(item.credits, name) == item.credits.end())
            item.credits.push_back(name);
    }
}

class CoverageList {
public:
    void add(CoverageItem item) {
        const auto link = canonicalLink(item.url);
        const auto name = outletKey(item.outlet) + '\n' + fold(item.title);
        auto known = places_.find(link);
        if (known == places_.end()) known = places_.find(name);
        if (known != places_.end()) return mergeCredits(items_[known->second], item);
        places_.emplace(link, items_.size());
        places_.emplace(name, items_.size());
        items_.push_back(std::move(item));
    }

    std::vector<CoverageItem> sorted() && {
        std::ranges::sort(items_, [](const CoverageItem& a, const CoverageItem& b) {
            return std::tie(a.at, a.outlet, a.url) < std::tie(b.at, b.outlet, b.url);
        });
        return std::move(items_);
    }

private:
    std::vector<CoverageItem> items_;
    std::map<std::string, std::size_t> places_;  ///< by link, and by outlet with title
};

}  // namespace

CoverageFinder coverageFinder(std::span<const Story* const> stories,
                              std::span<const ArchivedStory> archive,
                              const CorrectionOverlay* corrections) {
    CoverageList list;
    std::set<std::string> links, titles;
    for (const auto* story : stories) {
        list.add(itemOf(*story));
        links.insert(story->link);
        if (story->articleLink) links.insert(canonicalLink(*story->articleLink));
        titles.insert(fold(story->title));
    }
    const auto related = relatedLinks(stories, archive);
    std::vector<ArchivedStory> same;
    for (const auto& item : archive) {
        const auto link = canonicalLink(item.url);
        if (!links.contains(link) && !titles.contains(fold(item.title)) &&
            !related.contains(archiveID(link)))
            continue;
        list.add(itemOf(item));
        same.push_back(item);
    }
    CoverageFinder found{.items = std::move(list).sorted(),
                         .attribution = attributionOf(
                             {.stories = stories, .archive = same, .corrections = corrections})};
    std::set<std::string> outlets, here;
    for (const auto& item : found.items) {
        outlets.insert(outletKey(item.outlet));
        if (item.storyID) here.insert(outletKey(item.outlet));
    }
    found.outlets = outlets.size();
    found.outletsHere = here.size();
    return found;
}

}  // namespace kit
