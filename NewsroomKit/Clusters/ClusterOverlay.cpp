#include "NewsroomKit/Clusters/ClusterOverlay.h"

#include <algorithm>
#include <numeric>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "NewsroomKit/Clusters/MembershipReason.h"

namespace kit {

namespace {

class ClusterOverlay {
public:
    ClusterOverlay(const StoryTimes& timeOf, std::vector<StoryCluster>& clusters)
        : timeOf_(timeOf), clusters_(clusters) {
        for (std::size_t place = 0; place < clusters.size(); ++place) {
            for (const auto& id : clusters[place].storyIDs) placeOf_.emplace(id, place);
        }
    }

    void join(const ClusterOverrides::StoryIDs& stories) {
        // 1. All stories, and those that the rules have joined with them.
        std::size_t target = clusters_.size();
        for (const auto& id : stories) {
            if (!timeOf_(id)) continue;
            const auto known = placeOf_.find(id);
            if (known != placeOf_.end() && target == clusters_.size()) target = known->second;
        }
        if (target == clusters_.size()) clusters_.emplace_back();
        for (const auto& id : stories) {
            if (!timeOf_(id)) continue;
            const auto known = placeOf_.find(id);
            if (known == placeOf_.end()) {
                append(target, id, kJoinedByUser);
            } else if (known->second != target) {
                merge(known->second, target);
            }
        }
        // 2. A leader becomes a member when an earlier story joins.
        sortByTime(clusters_[target]);
    }

    void separate(const ClusterOverrides::StoryIDs& stories) {
        const auto split = placeOf_.find(stories.front());
        if (split == placeOf_.end()) return;
        const auto isWithOther = [&](const std::string& id) {
            const auto other = placeOf_.find(id);
            return id != stories.front() && other != placeOf_.end() &&
                   other->second == split->second;
        };
        if (stories.size() > 1 && std::none_of(stories.begin(), stories.end(), isWithOther)) return;
        auto& cluster = clusters_[split->second];
        const auto at = std::find(cluster.storyIDs.begin(), cluster.storyIDs.end(), split->first);
        cluster.whys.erase(cluster.whys.begin() + (at - cluster.storyIDs.begin()));
        cluster.storyIDs.erase(at);
        if (!cluster.storyIDs.empty()) {
            cluster.id = cluster.storyIDs.front();
            cluster.whys.front().clear();
        }
        placeOf_.erase(split);
    }

    void finish() {
        std::erase_if(clusters_, [](const StoryCluster& c) { return c.storyIDs.size() < 2; });
    }

private:
    void append(std::size_t target, const std::string& id, std::string why) {
        clusters_[target].storyIDs.push_back(id);
        clusters_[target].whys.push_back(std::move(why));
        placeOf_[id] = target;
    }

    void merge(std::size_t from, std::size_t target) {
        const StoryCluster merged = std::exchange(clusters_[from], {});
        for (std::size_t place = 0; place < merged.storyIDs.size(); ++place) {
            const auto& why = merged.whys[place];
            append(target, merged.storyIDs[place], why.empty() ? kJoinedByUser : why);
        }
    }

    void sortByTime(StoryCluster& cluster) const {
        std::vector<std::size_t> order(cluster.storyIDs.size());
        std::iota(order.begin(), order.end(), std::size_t{0});
        std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
            const auto& left = cluster.storyIDs[a];
            const auto& right = cluster.storyIDs[b];
            return std::tie(*timeOf_(left), left) < std::tie(*timeOf_(right), right);
        });
        StoryCluster sorted;
        for (const std::size_t place : order) {
            sorted.storyIDs.push_back(cluster.storyIDs[place]);
            const auto& why = cluster.whys[place];
            sorted.whys.push_back(why.empty() ? kJoinedByUser : why);
        }
        if (!sorted.storyIDs.empty()) {
            sorted.id = sorted.storyIDs.front();
            sorted.whys.front().clear();
        }
        cluster = std::move(sorted);
    }

    const StoryTimes& timeOf_;
    std::vector<StoryCluster>& clusters_;
    std::unordered_map<std::string, std::size_t> placeOf_;
};

}  // namespace

void applyOverrides(const ClusterOverrides& overrides, const StoryTimes& timeOf,
                    std::vector<StoryCluster>& clusters) {
    if (overrides.isEmpty()) return;
    ClusterOverlay overlay(timeOf, clusters);
    for (const auto& stories : overrides.joined) overlay.join(stories);
    for (const auto& stories : overrides.apart) {
        if (!stories.empty()) overlay.separate(stories);
    }
    overlay.finish();
}

}  // namespace kit
