#include "NewsroomKit/Attribution/CorrectedGroups.h"

#include <algorithm>
#include <map>

namespace kit {

namespace {

class GroupEditor {
public:
    explicit GroupEditor(std::vector<std::vector<std::string>> groups)
        : groups_(std::move(groups)) {
        for (std::size_t i = 0; i < groups_.size(); ++i) {
            std::erase_if(groups_[i],
                          [&](const auto& id) { return !groupOf_.emplace(id, i).second; });
        }
    }

    void join(const std::vector<std::string>& ids) {
        const auto to = groupOf(ids.front());
        for (const auto& id : ids) {
            const auto from = groupOf(id);
            if (from == to) continue;
            for (const auto& member : std::vector(groups_[from])) move(member, to);
        }
    }

    /// `stories`: the one that leaves, and from whom; alone, from everybody.
    void part(const std::vector<std::string>& stories,
              const std::vector<std::vector<std::string>>& joined) {
        const auto& leaving = stories.front();
        const auto& staying = stories.back();
        if (!groupOf_.contains(leaving) || !groupOf_.contains(staying)) return;
        if (groupOf(leaving) != groupOf(staying)) return;
        const auto together = std::ranges::find_if(
            joined, [&](const auto& ids) { return std::ranges::find(ids, leaving) != ids.end(); });
        groups_.emplace_back();
        move(leaving, groups_.size() - 1);
        if (together == joined.end()) return;
        for (const auto& id : *together) move(id, groups_.size() - 1);
    }

    std::vector<std::vector<std::string>> groups() && {
        std::erase_if(groups_, [](const auto& group) { return group.empty(); });
        return std::move(groups_);
    }

private:
    std::size_t groupOf(const std::string& id) {
        const auto [found, isNew] = groupOf_.emplace(id, groups_.size());
        if (isNew) groups_.push_back({id});
        return found->second;
    }

    void move(const std::string& id, std::size_t to) {
        auto& place = groupOf_[id];
        if (place == to) return;
        std::erase(groups_[place], id);
        groups_[to].push_back(id);
        place = to;
    }

    std::vector<std::vector<std::string>> groups_;
    std::map<std::string, std::size_t> groupOf_;
};

}  // namespace

std::vector<std::vector<std::string>> correctedGroups(std::vector<std::vector<std::string>> groups,
                                                      const CorrectionOverlay& overlay) {
    GroupEditor editor(std::move(groups));
    for (const auto& ids : overlay.joined()) editor.join(ids);
    for (const auto& stories : overlay.apart()) editor.part(stories, overlay.joined());
    return std::move(editor).groups();
}

}  // namespace kit
