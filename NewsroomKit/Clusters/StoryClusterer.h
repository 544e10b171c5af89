#pragma once

#include <chrono>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "NewsroomKit/Clusters/ClusterEntry.h"
#include "NewsroomKit/Clusters/StoryCluster.h"
#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Stories/Story.h"

namespace kit {

/// Finds the stories of the wire that tell the same news. A wrong cluster is worse than a
/// missing one, so headlines must share rare words and agree in every number, version and
/// product they name (HeadlineSimilarity.h), or one story must lead to the other's article.
///
/// What a story says is read once, when it is added. The clusters are a function of the
/// stories held, whatever way and order they came in; clusters() works them out anew each
/// time. Not for several threads at once.
class StoryClusterer {
public:
    /// A story joins others only when it appears at most this long after their newest, or
    /// before their oldest.
    static constexpr std::chrono::hours kWindow{48};

    /// A story that is held already is read anew; of two with one id in `stories` the later
    /// counts. Kinds that are set aside are not held.
    void add(std::span<const Story> stories);
    void remove(std::span<const std::string> storyIDs);
    /// Forgets the stories published before `instant`.
    void forgetBefore(Instant instant);
    /// Forgets the oldest stories beyond `count`; equal times by id.
    void keepNewest(std::size_t count);

    /// Those of at least two stories from at least two sources. The one with the newest story
    /// comes first; equal times by id.
    std::vector<StoryCluster> clusters() const;

private:
    std::unordered_map<std::string, ClusterEntry> entries_;  ///< by story id
};

}  // namespace kit
