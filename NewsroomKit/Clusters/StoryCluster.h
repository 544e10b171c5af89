#pragma once

#include <memory>
#include <string>
#include <vector>

namespace kit {

/// Stories that report the same news.
struct StoryCluster {
    std::string id{};  ///< the leader's id, so that it stays while the leader does
    /// By time of publication, the leader (the earliest) first; equal times by id.
    std::vector<std::string> storyIDs{};
    /// For each story why it belongs here, in one English sentence; empty for the leader.
    std::vector<std::string> whys{};

    bool operator==(const StoryCluster&) const = default;
};

/// For readers on several threads.
using SharedClusters = std::shared_ptr<const std::vector<StoryCluster>>;

}  // namespace kit
