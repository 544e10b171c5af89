#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "NewsroomKit/Clusters/StoryCluster.h"
#include "NewsroomKit/Stories/Story.h"

namespace kit {

/// Clusters as they fill while stories come one after another: which stories of a cluster are
/// there already. The stories must outlive it.
class SeenClusters {
public:
    explicit SeenClusters(std::span<const StoryCluster> clusters);

    /// A story with the id of an earlier one replaces it.
    void see(const Story& story);

    /// The stories of its cluster that have been seen; of a story without a cluster, itself.
    std::vector<const Story*> of(const Story& story) const;

private:
    std::unordered_map<std::string, std::size_t> clusterOf_;  ///< by story id
    std::unordered_map<std::size_t, std::vector<const Story*>> seen_;
};

}  // namespace kit
