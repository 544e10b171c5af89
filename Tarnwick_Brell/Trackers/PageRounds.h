#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/Pages/FollowedPage.h"
#include "Tarnwick_Brell/Trackers/TrackerFetcher.h"

namespace app {

struct AnyTrackedFile;

/// What came of asking for a page.
struct VisitedPage {
    kit::FollowedPage page;
    std::optional<kit::PageOutcome> outcome{};  ///< absent when it was not asked for
    std::string reason{};                       ///< then
};

/// Looks at followed pages, one after another and at a host once a second at most. What a look
/// comes to is stored and logged in one transaction, so that each change is told once, whichever
/// program has seen it.
///
/// The fetcher must outlive it. Coroutines throw StoreError.
class PageRounds {
public:
    explicit PageRounds(TrackerFetcher& fetcher) : fetcher_(fetcher) {}

    boost::asio::awaitable<std::vector<VisitedPage>> visit(std::vector<kit::FollowedPage> pages);

    static std::vector<kit::FollowedPage> duePages(LocalStore& store, kit::Instant now);

private:
    boost::asio::awaitable<VisitedPage> visit(kit::FollowedPage page);
    boost::asio::awaitable<void> leaveHostAlone(const std::string& address);
    std::optional<kit::PageOutcome> record(const kit::FollowedPage& page, kit::PageVisit visit,
                                           const std::string& expectedKey);

    TrackerFetcher& fetcher_;
    std::map<std::string, std::chrono::steady_clock::time_point> lastAsked_;
};

/// The round of all pages that are due, among the files of the trackers.
AnyTrackedFile pagesFile(kit::Clock clock);

}  // namespace app
