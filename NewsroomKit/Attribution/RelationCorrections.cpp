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
        if (apart_[a].contains(b) || alone_.contains(a) || alone_.contains(b)) return false;
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

    /// False when it is joined to others already.
    bool isolate(const std::string& story) {
        const auto group = groupOf(story);
        if (members_[group].size() > 1) return false;
        alone_.insert(group);
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
    std::set<std::size_t> alone_;
};

/// Applies a correction as far as the later ones leave it to; false where they leave nothing.
bool applyRelation(const Correction& correction, RelationGroups& groups,
                   std::set<std::vector<std::string>>& apart) {
    const auto& stories = correction.stories;
    const bool joins = correction.kind == Correction::Kind::same;
    if (!joins && stories.size() == 1) {
        const bool isAlone = groups.isolate(stories[0]);
        if (isAlone) apart.insert(stories);
        return isAlone;
    }
    bool hasEffect = false;
    for (std::size_t i = 1; i < stories.size(); ++i) {
        if (stories[i] == stories[0]) continue;
        if (joins) {
            hasEffect = groups.join(stories[0], stories[i]) || hasEffect;
        } else if (groups.part(stories[0], stories[i])) {
            hasEffect = true;
            if (!apart.contains({stories[i], stories[0]})) apart.insert({stories[0], stories[i]});
        }
    }
    return hasEffect;
}

}  // namespace

StoryRelations resolveRelations(std::span<const Correction* const> oldestFirst) {
    StoryRelations relations;
    RelationGroups groups;
    std::set<std::vector<std::string>> apart;
    for (auto place = oldestFirst.size(); place-- > 0;) {
        const Correction& correction = *oldestFirst[place];
        if (correction.kind != Correction::Kind::same &&
            correction.kind != Correction::Kind::notSame)
            continue;
        if (!applyRelation(correction, groups, apart)) relations.overruled.insert(correction.id);
    }
    relations.apart.assign(apart.begin(), apart.end());
    relations.joined = groups.joined();
    return relations;
}

}  // namespace kit
