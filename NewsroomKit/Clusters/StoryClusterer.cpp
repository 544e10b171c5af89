#include "NewsroomKit/Clusters/StoryClusterer.h"

#include <algorithm>
#include <functional>
#include <string_view>
#include <tuple>

#include "NewsroomKit/Clusters/ClusterBuilder.h"
#include "NewsroomKit/Stories/CanonicalLink.h"

namespace kit {

namespace {

/// An outlet's front page is not an article: every credit of the outlet would share it.
bool isArticle(std::string_view canonical) {
    const auto host = canonical.find("://");
    if (host == std::string_view::npos) return false;
    const auto path = canonical.find('/', host + 3);
    return path != std::string_view::npos && path + 1 < canonical.size();
}

void addArticle(std::vector<std::uint64_t>& articles, std::string_view canonical) {
    if (!isArticle(canonical)) return;
    const std::uint64_t article = std::hash<std::string_view>{}(canonical);
    if (std::find(articles.begin(), articles.end(), article) == articles.end()) {
        articles.push_back(article);
    }
}

ClusterEntry entryOf(const Story& story) {
    ClusterEntry entry{.storyID = story.id,
                       .sourceID = story.sourceID,
                       .publishedAt = story.publishedAt,
                       .headline = readHeadline(story.title)};
    addArticle(entry.articles, story.link);
    if (story.articleLink) addArticle(entry.articles, canonicalLink(*story.articleLink));
    for (const SourceCredit& credit : story.credits) {
        if (credit.url && credit.detail) addArticle(entry.credited, canonicalLink(*credit.url));
    }
    return entry;
}

}  // namespace

void StoryClusterer::add(std::span<const Story> stories) {
    for (const Story& story : stories) {
        if (isSetAside(story.kind)) {
            entries_.erase(story.id);
        } else {
            entries_.insert_or_assign(story.id, entryOf(story));
        }
    }
}

void StoryClusterer::remove(std::span<const std::string> storyIDs) {
    for (const std::string& id : storyIDs) entries_.erase(id);
}

void StoryClusterer::forgetBefore(Instant instant) {
    std::erase_if(entries_, [&](const auto& row) { return row.second.publishedAt < instant; });
}

void StoryClusterer::keepNewest(std::size_t count) {
    if (entries_.size() <= count) return;
    using Age = std::pair<Instant, std::string_view>;
    std::vector<Age> ages;
    ages.reserve(entries_.size());
    for (const auto& [id, entry] : entries_) ages.emplace_back(entry.publishedAt, id);
    const auto oldest = ages.begin() + static_cast<std::ptrdiff_t>(ages.size() - count);
    std::nth_element(ages.begin(), oldest, ages.end());
    const auto kept = *oldest;
    std::erase_if(entries_, [&](const auto& row) {
        return std::pair<Instant, std::string_view>(row.second.publishedAt, row.first) < kept;
    });
}

std::vector<StoryCluster> StoryClusterer::clusters() const {
    // 1. A fixed order, whatever order the stories were added in.
    std::vector<const ClusterEntry*> entries;
    entries.reserve(entries_.size());
    for (const auto& row : entries_) entries.push_back(&row.second);
    std::sort(entries.begin(), entries.end(), [](const ClusterEntry* a, const ClusterEntry* b) {
        return std::tie(a->publishedAt, a->storyID) < std::tie(b->publishedAt, b->storyID);
    });

    // 2. Groups with more than one source.
    auto groups = grownGroups(entries, kWindow);
    std::erase_if(groups, [&](const auto& group) {
        return std::all_of(group.begin(), group.end(), [&](std::size_t place) {
            return entries[place]->sourceID == entries[group.front()]->sourceID;
        });
    });

    // 3. Newest activity first.
    std::sort(groups.begin(), groups.end(), [&](const auto& a, const auto& b) {
        const ClusterEntry& newestOfA = *entries[a.back()];
        const ClusterEntry& newestOfB = *entries[b.back()];
        if (newestOfA.publishedAt != newestOfB.publishedAt) {
            return newestOfA.publishedAt > newestOfB.publishedAt;
        }
        return entries[a.front()]->storyID < entries[b.front()]->storyID;
    });

    std::vector<StoryCluster> clusters;
    for (const auto& group : groups) {
        StoryCluster cluster{.id = entries[group.front()]->storyID};
        for (const std::size_t place : group) cluster.storyIDs.push_back(entries[place]->storyID);
        clusters.push_back(std::move(cluster));
    }
    return clusters;
}

}  // namespace kit
