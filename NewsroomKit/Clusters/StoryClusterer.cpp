#include "NewsroomKit/Clusters/StoryClusterer.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <string_view>
#include <tuple>
#include <utility>

#include "NewsroomKit/Clusters/ClusterBuilder.h"
#include "NewsroomKit/Clusters/ClusterOverlay.h"
#include "NewsroomKit/Clusters/MembershipReason.h"

namespace kit {

namespace {

/// Numbers of removed entries are given up when there are this many more of them than others.
constexpr std::size_t kMostRemoved = 4000;
constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();

std::uint64_t signatureOf(const std::vector<std::uint32_t>& numbers) {
    std::uint64_t hash = 0xcbf29ce484222325U;
    for (const std::uint32_t number : numbers) hash = (hash ^ number) * 0x100000001b3U;
    return hash;
}

std::uint32_t rootOf(std::vector<std::uint32_t>& parents, std::uint32_t number) {
    while (parents[number] != number) {
        parents[number] = parents[parents[number]];
        number = parents[number];
    }
    return number;
}

StoryCluster explainedCluster(std::span<const ClusterEntry* const> group) {
    StoryCluster cluster{.id = group.front()->storyID};
    for (const ClusterEntry* entry : group) {
        cluster.storyIDs.push_back(entry->storyID);
        cluster.whys.push_back(entry == group.front() ? std::string()
                                                      : membershipReason(*entry, group));
    }
    return cluster;
}

}  // namespace

void StoryClusterer::add(std::span<const Story> stories) {
    for (const Story& story : stories) {
        auto entry = ClusterEntry::of(story);
        entry.vector = headlineVector(entry.headline, memory_);
        const auto next = static_cast<std::uint32_t>(entries_.size());
        const auto [row, isNew] = numbers_.try_emplace(story.id, next);
        if (!isNew) {
            entries_[row->second] = {};
            row->second = next;
        }
        entries_.push_back(std::move(entry));
    }
}

void StoryClusterer::drop(std::uint32_t number) {
    numbers_.erase(entries_[number].storyID);
    entries_[number] = {};
}

void StoryClusterer::remove(std::span<const std::string> storyIDs) {
    for (const std::string& id : storyIDs) {
        if (const auto row = numbers_.find(id); row != numbers_.end()) drop(row->second);
    }
}

void StoryClusterer::forgetBefore(Instant instant) {
    for (std::uint32_t number = 0; number < entries_.size(); ++number) {
        const auto& entry = entries_[number];
        if (!entry.storyID.empty() && entry.publishedAt < instant) drop(number);
    }
}

void StoryClusterer::keepNewest(std::size_t count) {
    if (numbers_.size() <= count) return;
    std::vector<std::uint32_t> held;
    held.reserve(numbers_.size());
    for (const auto& row : numbers_) held.push_back(row.second);
    const auto end = held.begin() + static_cast<std::ptrdiff_t>(held.size() - count);
    std::nth_element(held.begin(), end, held.end(), [&](std::uint32_t a, std::uint32_t b) {
        return std::tie(entries_[a].publishedAt, entries_[a].storyID) <
               std::tie(entries_[b].publishedAt, entries_[b].storyID);
    });
    for (auto number = held.begin(); number != end; ++number) drop(*number);
}

void StoryClusterer::rememberBefore(Instant instant) {
    WordMemory memory;
    for (const ClusterEntry& entry : entries_) {
        if (!entry.storyID.empty() && entry.publishedAt < instant) memory.add(entry.headline);
    }
    if (memory == memory_) return;
    memory_ = std::move(memory);
    for (auto& entry : entries_) entry.vector = headlineVector(entry.headline, memory_);
    compact();
}

/// Gives the entries that are left new numbers; all are compared anew.
void StoryClusterer::compact() {
    std::erase_if(entries_, [](const ClusterEntry& entry) { return entry.storyID.empty(); });
    for (std::uint32_t number = 0; number < entries_.size(); ++number) {
        numbers_[entries_[number].storyID] = number;
    }
    finder_ = {};
    compared_ = 0;
    pairs_.clear();
    groups_.clear();
    held_.clear();
    memo_.clear();
}

void StoryClusterer::findPairs() {
    if (entries_.size() > 2 * numbers_.size() + kMostRemoved) compact();
    std::erase_if(pairs_, [&](const PairFinder::Pair& pair) {
        return entries_[pair.left].storyID.empty() || entries_[pair.right].storyID.empty();
    });
    for (; compared_ < entries_.size(); ++compared_) {
        finder_.add(compared_, entries_, kAlike, kWindow, pairs_);
    }
}

/// Stories that are tied by chains of pairs, with the pairs of each.
std::vector<StoryClusterer::Component> StoryClusterer::components(
    std::vector<std::vector<PairFinder::Pair>>& pairsOf) const {
    std::vector<std::uint32_t> parents(entries_.size());
    std::iota(parents.begin(), parents.end(), 0U);
    for (const auto& pair : pairs_) {
        const auto left = rootOf(parents, pair.left);
        const auto right = rootOf(parents, pair.right);
        parents[std::max(left, right)] = std::min(left, right);
    }
    std::vector<std::uint32_t> places(entries_.size(), kNone);
    for (const auto& pair : pairs_) {
        auto& place = places[rootOf(parents, pair.left)];
        if (place == kNone) {
            place = static_cast<std::uint32_t>(pairsOf.size());
            pairsOf.emplace_back();
        }
        pairsOf[place].push_back(pair);
    }
    std::vector<Component> found(pairsOf.size());
    for (std::uint32_t number = 0; number < entries_.size(); ++number) {
        const auto place = places[rootOf(parents, number)];
        if (place != kNone) found[place].push_back(number);
    }
    return found;
}

/// The groups of a component that stand as clusters, by the numbers of their stories.
std::vector<StoryClusterer::Component> StoryClusterer::groupsOf(
    Component component, const std::vector<PairFinder::Pair>& pairs) {
    // 1. A fixed order, whatever order the stories were added in.
    std::sort(component.begin(), component.end(), [&](std::uint32_t a, std::uint32_t b) {
        return std::tie(entries_[a].publishedAt, entries_[a].storyID) <
               std::tie(entries_[b].publishedAt, entries_[b].storyID);
    });
    std::vector<const ClusterEntry*> entries;
    std::unordered_map<std::uint32_t, std::size_t> placeOf;
    for (const std::uint32_t number : component) {
        placeOf.emplace(number, entries.size());
        entries.push_back(&entries_[number]);
    }
    std::vector<EntryPair> placed;
    for (const auto& pair : pairs) {
        const auto [left, right] = std::minmax(placeOf[pair.left], placeOf[pair.right]);
        placed.push_back({left, right, pair.strength});
    }

    // 2. Groups of more than one source, which a story that tells news leads.
    std::vector<Component> groups;
    for (const auto& places : grownGroups(entries, component, std::move(placed), kWindow, memo_)) {
        Component group;
        for (const std::size_t place : places) {
            const bool mayStand = !group.empty() || entries[place]->genre == HeadlineGenre::news;
            if (mayStand) group.push_back(component[place]);
        }
        if (!isFromOneOutlet(group)) groups.push_back(std::move(group));
    }
    return groups;
}

bool StoryClusterer::isFromOneOutlet(const Component& group) const {
    return std::all_of(group.begin(), group.end(), [&](std::uint32_t number) {
        return entries_[number].outlet == entries_[group.front()].outlet;
    });
}

StoryClusterer::HeldCluster StoryClusterer::clusterOf(const Component& group) const {
    std::vector<const ClusterEntry*> entries;
    for (const std::uint32_t number : group) entries.push_back(&entries_[number]);
    return {.cluster = explainedCluster(entries), .newest = entries.back()->publishedAt};
}

void StoryClusterer::findGroups() {
    findPairs();
    std::vector<std::vector<PairFinder::Pair>> pairsOf;
    const auto found = components(pairsOf);
    std::unordered_map<std::uint64_t, std::vector<std::uint64_t>> groupsOfComponent;
    std::unordered_map<std::uint64_t, HeldCluster> held;
    for (std::size_t place = 0; place < found.size(); ++place) {
        const auto signature = signatureOf(found[place]);
        auto& groups = groupsOfComponent[signature];
        if (const auto before = groups_.find(signature); before != groups_.end()) {
            groups = std::move(before->second);
            for (const auto group : groups) held.insert(held_.extract(group));
            continue;
        }
        for (const auto& group : groupsOf(found[place], pairsOf[place])) {
            const auto own = groups.emplace_back(signatureOf(group));
            auto before = held_.extract(own);
            if (before) {
                held.insert(std::move(before));
            } else {
                held.emplace(own, clusterOf(group));
            }
        }
    }
    groups_ = std::move(groupsOfComponent);
    held_ = std::move(held);
}

std::vector<StoryCluster> StoryClusterer::clusters() {
    // 1. What the rules say, the newest activity first.
    findGroups();
    std::vector<const HeldCluster*> byTime;
    byTime.reserve(held_.size());
    for (const auto& row : held_) byTime.push_back(&row.second);
    std::sort(byTime.begin(), byTime.end(), [](const auto* a, const auto* b) {
        return a->newest != b->newest ? a->newest > b->newest : a->cluster.id < b->cluster.id;
    });
    std::vector<StoryCluster> clusters;
    clusters.reserve(byTime.size());
    for (const auto* held : byTime) clusters.push_back(held->cluster);
    if (overrides_.isEmpty()) return clusters;

    // 2. What the user has said.
    const auto timeOf = [&](const std::string& id) -> const Instant* {
        const auto row = numbers_.find(id);
        return row == numbers_.end() ? nullptr : &entries_[row->second].publishedAt;
    };
    applyOverrides(overrides_, timeOf, clusters);
    std::sort(clusters.begin(), clusters.end(), [&](const auto& a, const auto& b) {
        const Instant newestOfA = *timeOf(a.storyIDs.back());
        const Instant newestOfB = *timeOf(b.storyIDs.back());
        return newestOfA != newestOfB ? newestOfA > newestOfB : a.id < b.id;
    });
    return clusters;
}

}  // namespace kit
