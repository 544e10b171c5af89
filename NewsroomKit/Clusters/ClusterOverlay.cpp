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
    ClusterOverlay(const ClusterOverrides& overrides, const StoryTimes& timeOf,
                   std::vector<StoryCluster>& clusters)
        : overrides_(overrides), timeOf_(timeOf), clusters_(clusters) {
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
        const std::size_t from = split->second;
        const auto isThere = [&](const std::string& id) {
            const auto known = placeOf_.find(id);
            return known != placeOf_.end() && known->second == from;
        };
        if (stories.size() > 1 && std::none_of(stories.begin() + 1, stories.end(), isThere)) return;
        const std::size_t target = clusters_.size();
        clusters_.emplace_back();
        moveTo(target, stories.front());
        if (stories.size() > 1) {
            for (const auto& id : joinedWith(stories.front())) {
                if (isThere(id)) moveTo(target, id);
            }
        }
        sortByTime(clusters_[target]);
        makeFirstLead(clusters_[from]);
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

    void moveTo(std::size_t target, const std::string& id) {
        auto& cluster = clusters_[placeOf_.at(id)];
        const auto at = std::find(cluster.storyIDs.begin(), cluster.storyIDs.end(), id);
        cluster.whys.erase(cluster.whys.begin() + (at - cluster.storyIDs.begin()));
        cluster.storyIDs.erase(at);
        append(target, id, kJoinedByUser);
    }

    /// The stories that the user has joined with this one.
    ClusterOverrides::StoryIDs joinedWith(const std::string& id) const {
        for (const auto& stories : overrides_.joined) {
            if (std::find(stories.begin(), stories.end(), id) != stories.end()) return stories;
        }
        return {};
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
        makeFirstLead(sorted);
        cluster = std::move(sorted);
    }

    static void makeFirstLead(StoryCluster& cluster) {
        if (cluster.storyIDs.empty()) return;
        cluster.id = cluster.storyIDs.front();
        cluster.whys.front().clear();
    }

    const ClusterOverrides& overrides_;
    const StoryTimes& timeOf_;
    std::vector<StoryCluster>& clusters_;
    std::unordered_map<std::string, std::size_t> placeOf_;
};

}  // namespace

void applyOverrides(const ClusterOverrides& overrides, const StoryTimes& timeOf,
                    std::vector<StoryCluster>& clusters) {
    if (overrides.isEmpty()) return;
    ClusterOverlay overlay(overrides, timeOf, clusters);
    for (const auto& stories : overrides.joined) overlay.join(stories);
    for (const auto& stories : overrides.apart) {
        if (!stories.empty()) overlay.separate(stories);
    }
    overlay.finish();
}

}  // namespace kit
