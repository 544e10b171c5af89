#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/Ingestion/FeedClient.h"
#include "NewsroomKit/Sources/NewsSource.h"
#include "Tarnwick_Brell/Desk/AddSourceError.h"
#include "Tarnwick_Brell/Desk/FetchStack.h"
#include "Tarnwick_Brell/Desk/SourceRegistry.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

/// What a typed address would bring.
struct AddressCheck {
    std::string name{};     ///< of the source as it would be added
    std::string feedURL{};  ///< maybe found through a web page
    std::string siteURL{};
    std::size_t storyCount = 0;  ///< stories that the desk would keep
    std::size_t collapsed = 0;   ///< others that share their link with one of those
    std::size_t tooOld = 0;      ///< others that were published too long ago
    std::optional<kit::Instant> newestStory{};
    std::vector<std::string> titles{};  ///< of the first few stories that would be kept
};

/// Adds sources by what a user types: a feed, a website, a handle or a channel. What the
/// text may mean is fetched in turn; the first feed with a story in it counts.
class SourceAdder {
public:
    using Checked = std::variant<AddressCheck, AddSourceError>;
    using Added = std::variant<kit::NewsSource, AddSourceError>;

    /// `retention`: how long the desk keeps stories.
    SourceAdder(LocalStore& store, SourceRegistry& roster, FetchStack& engine, kit::Clock clock,
                std::chrono::duration<double> retention);

    /// Changes nothing.
    boost::asio::awaitable<Checked> check(std::string typed);

    /// Both throw StoreError.
    boost::asio::awaitable<Added> add(std::string typed);
    /// Takes the address at its word, without fetching.
    Added addWithoutFetching(std::string_view typed);

private:
    AddressCheck describe(const std::string& candidate,
                          const kit::SourceFetch::Stories& stories) const;
    Added write(const std::string& name, const std::string& feedURL, const std::string& siteURL);

    LocalStore& store_;
    SourceRegistry& roster_;
    FetchStack& engine_;
    kit::Clock clock_;
    std::chrono::duration<double> retention_;
};

}  // namespace app
