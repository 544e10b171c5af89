#include <gtest/gtest.h>

#include "NewsroomKit/Clusters/StoryClusterer.h"

namespace kit {
namespace {

using StoryIDs = ClusterOverrides::StoryIDs;

Story storyAt(std::string id, std::string title, int hour) {
    return {.id = id,
            .link = "https://" + id + ".example/" + id,
            .title = std::move(title),
            .publishedAt = Instant(std::chrono::hours(hour)),
            .sourceID = "source of " + id};
}

/// The clusters' stories, the newest cluster first.
std::vector<StoryIDs> clustersWith(ClusterOverrides overrides) {
    StoryClusterer clusterer;
    clusterer.add(std::vector<Story>{
        storyAt("a", "Apple buys Quillwork robotics", 1),
        storyAt("b", "Quillwork robotics bought by Apple", 2),
        storyAt("c", "Apple acquires robotics firm Quillwork", 3),
        storyAt("x", "Valparaiso flagship store opens", 4),
        storyAt("far", "A kitchen arm from Cupertino", 900),
    });
    clusterer.setOverrides(std::move(overrides));
    std::vector<StoryIDs> found;
    for (const auto& cluster : clusterer.clusters()) {
        EXPECT_EQ(cluster.id, cluster.storyIDs.front());
        EXPECT_EQ(cluster.whys.size(), cluster.storyIDs.size());
        EXPECT_TRUE(cluster.whys.front().empty());
        for (std::size_t at = 1; at < cluster.whys.size(); ++at) EXPECT_NE(cluster.whys[at], "");
        found.push_back(cluster.storyIDs);
    }
    return found;
}

TEST(ClusterOverrides, TheUsersWordIsLaidOverTheRules) {
    using Found = std::vector<StoryIDs>;
    EXPECT_EQ(clustersWith({}), (Found{{"a", "b", "c"}}));
    EXPECT_EQ(clustersWith({.joined = {{"b", "far"}}}), (Found{{"a", "b", "c", "far"}}));
    EXPECT_EQ(clustersWith({.joined = {{"far", "x"}}}), (Found{{"x", "far"}, {"a", "b", "c"}}));
    EXPECT_EQ(clustersWith({.apart = {{"a", "b"}}}), (Found{{"b", "c"}}));
    EXPECT_EQ(clustersWith({.apart = {{"b"}, {"c"}}}), Found{}) << "one story is no cluster";
    EXPECT_EQ(clustersWith({.apart = {{"b", "x"}}}), (Found{{"a", "b", "c"}})) << "were apart";
    EXPECT_EQ(clustersWith({.joined = {{"a", "gone"}, {"gone", "gone too"}}, .apart = {{"gone"}}}),
              (Found{{"a", "b", "c"}}))
        << "stories that have vanished are skipped";
    EXPECT_EQ(clustersWith({.joined = {{"a", "x"}}, .apart = {{"a", "b"}}}),
              (Found{{"a", "x"}, {"b", "c"}}))
        << "what is joined leaves together";
    // A cycle of joins is one cluster.
    EXPECT_EQ(clustersWith({.joined = {{"a", "x"}, {"x", "far"}, {"far", "a"}}}),
              (Found{{"a", "b", "c", "x", "far"}}));
}

}  // namespace
}  // namespace kit
