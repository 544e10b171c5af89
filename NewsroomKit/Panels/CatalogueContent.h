#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Panels/PanelCondition.h"
#include "NewsroomKit/Trackers/Updates/OfferChange.h"

namespace kit {

/// What Apple's update catalogue offers, by platform, and what came into it and what went.
struct CatalogueContent {
    struct Row {
        UpdateOffer offer{};
        bool isNew = false;  ///< the desk saw it come within the last two days
        /// Days of New York's calendar until it expires, when they are 14 or fewer. Nothing for one
        /// that should have expired: the catalogue moves these days every night.
        std::optional<int> daysLeft{};

        bool operator==(const Row&) const = default;
    };
    struct Group {
        std::string name{};
        std::vector<Row> rows{};

        bool operator==(const Group&) const = default;
    };

    PanelCondition condition{};
    std::size_t offerCount = 0;            ///< whatever the filter
    std::vector<std::string> platforms{};  ///< names of the groups, whatever the filter
    std::vector<Group> groups{};
    std::vector<OfferChange> changes{};  ///< the last seen first
    std::size_t lateChanges = 0;         ///< of those the ones of the last 30 days
};

struct CatalogueFilter {
    std::string platform{};  ///< the name of a group; empty: all
    std::string words{};     ///< in the platform, the version, the build, the newest device
};

/// `changes`: the last seen first.
CatalogueContent catalogueContent(const CachedValue<std::vector<UpdateOffer>>& updates,
                                  const std::vector<OfferChange>& changes,
                                  const CatalogueFilter& filter, Instant now);

}  // namespace kit
