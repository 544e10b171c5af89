#pragma once

#include <chrono>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "NewsroomKit/Clusters/HeadlineSimilarity.h"
#include "NewsroomKit/Clusters/StoryCluster.h"
#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Stories/Story.h"

namespace kit {

/// Finds stories that report the same news. A wrong cluster is worse than a missing one, so
/// headlines must share rare words and agree in every number, version and product they name
/// (HeadlineSimilarity.h), or one story must lead to the other's article.
///
/// A story is analysed once, when it is added. The clusters depend only on the stories held, not on
/// the order in which they were added; clusters() computes them anew each time. Not thread-safe.
class StoryClusterer {
public:
    /// A story joins others only when it appears at most this long after their newest, or
    /// before their oldest.
    static constexpr std::chrono::hours kWindow{48};

    /// Replaces stories with the same id; of two in `stories` the later one counts. Kinds that are
    /// set aside are ignored.
    void add(std::span<const Story> stories);
    void remove(std::span<const std::string> storyIDs);
    /// Forgets the stories published before `instant`.
    void forgetBefore(Instant instant);
    /// Forgets the oldest stories beyond `count`; equal times by id.
    void keepNewest(std::size_t count);

    /// Clusters of at least two stories from at least two sources. The one with the newest story
    /// comes first; equal times are ordered by id.
    std::vector<StoryCluster> clusters() const;

private:
    std::unordered_map<std::string, ClusterEntry> entries_;  ///< by story id
};

}  // namespace kit
