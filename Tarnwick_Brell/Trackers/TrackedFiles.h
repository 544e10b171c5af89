#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Trackers/Charts/AppStoreCharts.h"
#include "NewsroomKit/Trackers/Events/AppleCalendarEvent.h"
#include "NewsroomKit/Trackers/Market/BoardQuote.h"
#include "NewsroomKit/Trackers/Market/StockQuote.h"
#include "NewsroomKit/Trackers/Releases/PlatformRelease.h"
#include "NewsroomKit/Trackers/Signing/SigningStatus.h"
#include "NewsroomKit/Trackers/Status/AppleServiceStatus.h"
#include "NewsroomKit/Trackers/Status/StatusFeed.h"
#include "NewsroomKit/Trackers/Updates/AppleUpdateCatalog.h"
#include "Tarnwick_Brell/Trackers/TrackedFile.h"

namespace app {

/// Every file that the desk tracks, a row each.
struct TrackedFiles {
    /// The names of all quotes begin with it.
    static constexpr std::string_view kQuotePrefix = "quote/";
    /// The symbol of Apple's own share.
    static constexpr std::string_view kShare = "AAPL";

    /// What helps when the certificate of the update catalogue's host is not trusted.
    static std::string catalogueAuthorityHint();

    std::string serviceAddress{};  ///< of the maker's service

    TrackedFile<kit::AppleServiceStatus::Services> status(kit::StatusFeed audience) const;
    TrackedFile<std::vector<kit::PlatformRelease>> releases() const;
    TrackedFile<std::vector<kit::AppleCalendarEvent>> events() const;
    TrackedFile<kit::StockQuote> quote(std::string_view symbol, kit::QuoteRange range) const;
    /// The quote over a year of a symbol that is followed: unusual moves of its price are logged.
    TrackedFile<kit::StockQuote> followedYear(std::string_view symbol) const;
    TrackedFile<std::vector<kit::BoardQuote>> board() const;
    TrackedFile<kit::SigningStatus> signing(std::string_view device) const;
    TrackedFile<std::vector<kit::UpdateOffer>> updates() const;
    TrackedFile<std::vector<kit::ChartEntry>> chart(kit::AppStoreCharts::Kind kind) const;
};

}  // namespace app
