#pragma once

#include <string>
#include <vector>

namespace kit {

/// What the user has said about clusters, without contradictions. Stories that are not held are
/// skipped.
struct ClusterOverrides {
    using StoryIDs = std::vector<std::string>;

    std::vector<StoryIDs> joined{};  ///< tell the same news, however far apart in time
    /// The first story of each list is not the news of the others, nor are those that are joined
    /// with it. One alone belongs to no cluster.
    std::vector<StoryIDs> apart{};

    bool isEmpty() const { return joined.empty() && apart.empty(); }
    bool operator==(const ClusterOverrides&) const = default;
};

}  // namespace kit
