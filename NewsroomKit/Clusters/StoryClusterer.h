#pragma once

#include <chrono>
#include <cstdint>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "NewsroomKit/Clusters/ClusterBuilder.h"
#include "NewsroomKit/Clusters/ClusterEntry.h"
#include "NewsroomKit/Clusters/ClusterOverrides.h"
#include "NewsroomKit/Clusters/PairFinder.h"
#include "NewsroomKit/Clusters/StoryCluster.h"
#include "NewsroomKit/Clusters/WordMemory.h"
#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Stories/Story.h"

namespace kit {

/// Finds stories that report the same news: their headlines and the first words of their excerpts
/// are alike in rare words (HeadlineVector.h) and contradict each other in nothing that they name
/// (HeadlineFacts.h), or one story leads to the other's article or credits it.
///
/// A story is analysed once, when it is added, and compared with the others once. The clusters
/// depend only on the stories held, the memory and the overrides, not on the order in which they
/// came. Not thread-safe.
class StoryClusterer {
public:
    /// A story joins others only when it appears at most this long after their newest, or
    /// before their oldest.
    static constexpr std::chrono::hours kWindow{48};

    StoryClusterer() = default;
    explicit StoryClusterer(WordMemory memory) : memory_(std::move(memory)) {}

    /// Replaces stories with the same id; of two in `stories` the later one counts.
    void add(std::span<const Story> stories);
    void remove(std::span<const std::string> storyIDs);
    /// Forgets the stories published before `instant`.
    void forgetBefore(Instant instant);
    /// Forgets the oldest stories beyond `count`; equal times by id.
    void keepNewest(std::size_t count);

    /// Weighs words by the titles of the stories held that were published before `instant`, and
    /// compares all stories anew unless that changes nothing.
    void rememberBefore(Instant instant);
    void setOverrides(ClusterOverrides overrides) { overrides_ = std::move(overrides); }

    /// Clusters of at least two stories from at least two sources. The one with the newest story
    /// comes first; equal times are ordered by id.
    std::vector<StoryCluster> clusters();

private:
    using Component = std::vector<std::uint32_t>;

    struct HeldCluster {
        StoryCluster cluster{};
        Instant newest{};
    };

    void drop(std::uint32_t number);
    void compact();
    void findPairs();
    std::vector<Component> components(std::vector<std::vector<PairFinder::Pair>>& pairsOf) const;
    std::vector<Component> groupsOf(Component component,
                                    const std::vector<PairFinder::Pair>& pairs);
    bool isFromOneOutlet(const Component& group) const;
    HeldCluster clusterOf(const Component& group) const;
    void findGroups();

    WordMemory memory_;
    ClusterOverrides overrides_;
    std::vector<ClusterEntry> entries_;  ///< by number; those removed have no id
    std::unordered_map<std::string, std::uint32_t> numbers_;  ///< by story id
    PairFinder finder_;
    std::uint32_t compared_ = 0;  ///< the entries before this number are in the finder
    std::vector<PairFinder::Pair> pairs_;
    PairMemo memo_;
    // As last found, to be used again where nothing has changed. Keys are hashes of numbers.
    std::unordered_map<std::uint64_t, std::vector<std::uint64_t>> groups_;  ///< by component
    std::unordered_map<std::uint64_t, HeldCluster> held_;                   ///< by group
};

}  // namespace kit
