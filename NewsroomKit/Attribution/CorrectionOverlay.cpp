#include "NewsroomKit/Attribution/CorrectionOverlay.h"

#include <algorithm>

#include "NewsroomKit/Attribution/RelationCorrections.h"
#include "NewsroomKit/Attribution/TellingOutlet.h"

namespace kit {

namespace {

std::vector<const Correction*> oldestFirst(std::span<const Correction> corrections) {
    std::vector<const Correction*> sorted;
    for (const auto& correction : corrections) sorted.push_back(&correction);
    std::ranges::stable_sort(sorted, {}, [](const Correction* c) { return c->madeAt; });
    return sorted;
}

const Correction::Instead& insteadOf(const Correction& correction) {
    static const Correction::Instead none;
    return correction.instead ? *correction.instead : none;
}

}  // namespace

CorrectionOverlay::CorrectionOverlay(std::span<const Correction> corrections) {
    const auto byAge = oldestFirst(corrections);
    addLabels(byAge);
    addCredits(byAge);
    addFirsts(byAge);
    auto relations = resolveRelations(byAge);
    joined_ = std::move(relations.joined);
    apart_ = std::move(relations.apart);
    overruled_.merge(relations.overruled);
}

void CorrectionOverlay::addLabels(std::span<const Correction* const> byAge) {
    struct Deciders {
        std::string kind, sourcing;
    };
    std::map<std::string, Deciders> deciders;
    for (const auto* correction : byAge) {
        if (correction->kind != Correction::Kind::label) continue;
        const auto& instead = insteadOf(*correction);
        overruled_.insert(correction->id);
        for (const auto& story : correction->stories) {
            auto& label = labels_[story];
            auto& decider = deciders[story];
            if (instead.kind) label.kind = instead.kind, decider.kind = correction->id;
            if (instead.sourcing)
                label.sourcing = instead.sourcing, decider.sourcing = correction->id;
        }
    }
    for (const auto& [story, decider] : deciders) {
        overruled_.erase(decider.kind);
        overruled_.erase(decider.sourcing);
    }
}

void CorrectionOverlay::addCredits(std::span<const Correction* const> byAge) {
    for (const auto* correction : byAge) {
        if (correction->kind != Correction::Kind::credit) continue;
        const auto& instead = insteadOf(*correction);
        const auto name = outletKey(instead.name.value_or(""));
        for (const auto& story : correction->stories) {
            auto& changes = credits_[story];
            // The user may name the credit as an earlier correction left it.
            for (auto& [original, current] : changes) {
                if (current && outletKey(*current) == name) current = instead.by;
            }
            changes[name] = instead.by;
        }
    }
}

void CorrectionOverlay::addFirsts(std::span<const Correction* const> byAge) {
    for (const auto* correction : byAge) {
        if (correction->kind != Correction::Kind::first) continue;
        const auto& instead = insteadOf(*correction);
        for (const auto& story : correction->stories) firstOfStory_[story] = firsts_.size();
        firsts_.push_back({.correctionID = correction->id,
                           .outlet = shownOutletName(instead.outlet.value_or("")),
                           .link = instead.link,
                           .at = instead.at});
    }
    std::set<std::size_t> used;
    for (const auto& [story, place] : firstOfStory_) used.insert(place);
    for (std::size_t i = 0; i < firsts_.size(); ++i) {
        if (!used.contains(i)) overruled_.insert(firsts_[i].correctionID);
    }
}

const CorrectionOverlay::Label* CorrectionOverlay::labelOf(std::string_view storyID) const {
    const auto found = labels_.find(storyID);
    return found == labels_.end() ? nullptr : &found->second;
}

bool CorrectionOverlay::changes(std::string_view storyID) const {
    return labels_.contains(storyID) || credits_.contains(storyID);
}

void CorrectionOverlay::applyTo(Story& story) const {
    if (const auto* label = labelOf(story.id)) {
        story.kind = label->kind.value_or(story.kind);
        story.sourcing = label->sourcing.value_or(story.sourcing);
    }
    const auto found = credits_.find(story.id);
    if (found == credits_.end()) return;
    std::erase_if(story.credits, [&](SourceCredit& credit) {
        const auto change = found->second.find(outletKey(creditedOutlet(credit)));
        if (change == found->second.end()) return false;
        if (!change->second) return true;
        credit.name = *change->second;
        credit.kind = SourceCredit::Kind::outlet;
        credit.platform.reset();
        return false;
    });
}

const CorrectionOverlay::First* CorrectionOverlay::firstOf(
    std::span<const std::string_view> storyIDs) const {
    std::optional<std::size_t> latest;
    for (const auto id : storyIDs) {
        const auto found = firstOfStory_.find(id);
        if (found != firstOfStory_.end()) latest = std::max(latest.value_or(0), found->second);
    }
    return latest ? &firsts_[*latest] : nullptr;
}

}  // namespace kit
