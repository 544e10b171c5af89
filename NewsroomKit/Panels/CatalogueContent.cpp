#include "NewsroomKit/Panels/CatalogueContent.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <set>
#include <tuple>
#include <utility>

#include "NewsroomKit/Panels/RowFilter.h"
#include "NewsroomKit/Trackers/Updates/CatalogueDay.h"

namespace kit {

namespace {

using Group = CatalogueContent::Group;
using OfferKey = std::tuple<std::string, std::string, std::string>;

constexpr std::chrono::hours kNewOfferFor{48};
constexpr std::chrono::days kLateChanges{30};
constexpr int kSoonDays = 14;

/// The groups in their order. A platform that is not here has a group of its own behind them.
constexpr std::array<std::pair<std::string_view, std::string_view>, 6> kGroups{{
    {"iOS", "iOS and iPadOS"},
    {"iPadOS", "iOS and iPadOS"},
    {"macOS", "macOS"},
    {"visionOS", "visionOS"},
    {"watchOS", "watchOS and tvOS"},
    {"tvOS", "watchOS and tvOS"},
}};

std::string_view groupOf(std::string_view platform) {
    for (const auto& [name, group] : kGroups) {
        if (name == platform) return group;
    }
    return platform;
}

std::ptrdiff_t placeOf(const Group& group) {
    return std::ranges::find(kGroups, group.name, [](const auto& entry) { return entry.second; }) -
           kGroups.begin();
}

OfferKey keyOf(const UpdateOffer& offer) { return {offer.platform, offer.version, offer.build}; }

/// Only the last change of an offer counts: it may have come and gone again.
std::set<OfferKey> newOffers(const std::vector<OfferChange>& changes, Instant now) {
    std::set<OfferKey> seen, fresh;
    for (const auto& change : changes) {
        if (change.seenAt < now - kNewOfferFor) break;
        const auto key = keyOf(change.offer);
        if (seen.insert(key).second && change.isOffered) fresh.insert(key);
    }
    return fresh;
}

std::optional<int> daysLeft(const UpdateOffer& offer, Instant now) {
    if (!offer.expires) return std::nullopt;
    const auto left = (newYorkDay(*offer.expires) - newYorkDay(now)).count();
    return left >= 0 && left <= kSoonDays ? std::optional(static_cast<int>(left)) : std::nullopt;
}

void addOffer(std::vector<Group>& groups, CatalogueContent::Row row) {
    const auto name = groupOf(row.offer.platform);
    auto group = std::ranges::find(groups, name, &Group::name);
    if (group == groups.end()) group = groups.insert(group, {.name = std::string(name)});
    group->rows.push_back(std::move(row));
}

}  // namespace

CatalogueContent catalogueContent(const CachedValue<std::vector<UpdateOffer>>& updates,
                                  const std::vector<OfferChange>& changes,
                                  const CatalogueFilter& filter, Instant now) {
    CatalogueContent content{.changes = changes};
    content.lateChanges = static_cast<std::size_t>(std::ranges::count_if(
        changes, [&](const OfferChange& change) { return change.seenAt >= now - kLateChanges; }));
    if (updates.value) {
        const auto fresh = newOffers(changes, now);
        for (const auto& offer : *updates.value) {
            addOffer(content.groups, {.offer = offer,
                                      .isNew = fresh.contains(keyOf(offer)),
                                      .daysLeft = daysLeft(offer, now)});
        }
        content.offerCount = updates.value->size();
    }
    std::ranges::stable_sort(content.groups, {}, placeOf);
    for (const auto& group : content.groups) content.platforms.push_back(group.name);

    const RowFilter words(filter.words);
    for (auto& [name, rows] : content.groups) {
        std::erase_if(rows, [&](const CatalogueContent::Row& row) {
            const auto& offer = row.offer;
            return (!filter.platform.empty() && name != filter.platform) ||
                   !words.matches({offer.platform, offer.version, offer.build,
                                   offer.newestDevice.value_or("")});
        });
    }
    std::erase_if(content.groups, [](const Group& group) { return group.rows.empty(); });
    content.condition =
        PanelCondition::of(updates, content.offerCount > 0 || !content.changes.empty());
    return content;
}

}  // namespace kit
