#include "NewsroomKit/Attribution/RelationCorrections.h"

#include <algorithm>
#include <map>

namespace kit {

namespace {

/// Stories that are joined, and which of these groups are kept apart.
class RelationGroups {
public:
    /// False when the two are kept apart already.
    bool join(const std::string& left, const std::string& right) {
        const auto a = groupOf(left), b = groupOf(right);
        if (a == b) return true;
        if (apart_[a].contains(b)) return false;
        for (const auto& member : members_[b]) {
            group_[member] = a;
            members_[a].push_back(member);
        }
        members_[b].clear();
        for (const auto other : apart_[b]) {
            apart_[other].erase(b);
            apart_[other].insert(a);
            apart_[a].insert(other);
        }
        apart_[b].clear();
        return true;
    }

    /// False when the two are joined already.
    bool part(const std::string& left, const std::string& right) {
        const auto a = groupOf(left), b = groupOf(right);
        if (a == b) return false;
        apart_[a].insert(b);
        apart_[b].insert(a);
        return true;
    }

    std::vector<std::vector<std::string>> joined() const {
        std::vector<std::vector<std::string>> groups;
        for (auto group : members_) {
            if (group.size() < 2) continue;
            std::ranges::sort(group);
            groups.push_back(std::move(group));
        }
        std::ranges::sort(groups);
        return groups;
    }

private:
    std::size_t groupOf(const std::string& story) {
        const auto [found, isNew] = group_.emplace(story, members_.size());
        if (isNew) {
            members_.push_back({story});
            apart_.emplace_back();
        }
        return found->second;
    }

    std::map<std::string, std::size_t> group_;
    std::vector<std::vector<std::string>> members_;
    std::vector<std::set<std::size_t>> apart_;
};

}  // namespace

StoryRelations resolveRelations(std::span<const Correction* const> oldestFirst) {
    StoryRelations relations;
    RelationGroups groups;
    std::set<std::pair<std::string, std::string>> seen;
    for (auto place = oldestFirst.size(); place-- > 0;) {
        const Correction& correction = *oldestFirst[place];
        const bool joins = correction.kind == Correction::Kind::same;
        if (!joins && correction.kind != Correction::Kind::notSame) continue;
        bool hasEffect = false;
        const auto& stories = correction.stories;
        for (std::size_t i = 1; i < stories.size(); ++i) {
            if (stories[i] == stories[0]) continue;
            if (joins) {
                hasEffect = groups.join(stories[0], stories[i]) || hasEffect;
            } else if (groups.part(stories[0], stories[i])) {
                hasEffect = true;
                if (seen.insert(std::minmax(stories[0], stories[i])).second)
                    relations.apart.emplace_back(stories[0], stories[i]);
            }
        }
        if (!hasEffect) relations.overruled.insert(correction.id);
    }
    // The latest last, as they were made.
    std::ranges::reverse(relations.apart);
    relations.joined = groups.joined();
    return relations;
}

}  // namespace kit
