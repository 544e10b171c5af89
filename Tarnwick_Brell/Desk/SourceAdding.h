#pragma once

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
#include "Tarnwick_Brell/Desk/FetchEngine.h"
#include "Tarnwick_Brell/Desk/SourceRoster.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace desk {

/// What a typed address would bring.
struct AddressCheck {
    std::string name{};     ///< of the source as it would be added
    std::string feedURL{};  ///< maybe found through a web page
    std::string siteURL{};
    std::size_t storyCount = 0;
    std::optional<newsroom::Instant> newestStory{};
    std::vector<std::string> titles{};  ///< of the first few stories
};

/// Adds sources by what a user types: a feed, a website, a handle or a channel. What the
/// text may mean is fetched in turn; the first feed with a story in it counts.
class SourceAdding {
public:
    using Checked = std::variant<AddressCheck, AddSourceError>;
    using Added = std::variant<newsroom::NewsSource, AddSourceError>;

    SourceAdding(LocalStore& store, SourceRoster& roster, FetchEngine& engine,
                 newsroom::FeedClient::Clock clock);

    /// Changes nothing.
    boost::asio::awaitable<Checked> check(std::string typed);

    /// Both throw StoreError.
    boost::asio::awaitable<Added> add(std::string typed);
    /// Takes the address at its word, without fetching.
    Added addUnchecked(std::string_view typed);

private:
    std::optional<AddSourceError> obstacle(const std::string& candidate) const;
    Added write(const std::string& name, const std::string& feedURL, const std::string& siteURL);

    LocalStore& store_;
    SourceRoster& roster_;
    FetchEngine& engine_;
    newsroom::FeedClient::Clock clock_;
};

}  // namespace desk
