#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/Ingestion/SourceFetch.h"
#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Sources/NewsSource.h"
#include "Tarnwick_Brell/Desk/SourceRegistry.h"

namespace app {

class FetchStack;
class LocalStore;

/// Why a typed address gives no source.
struct AddSourceError {
    enum class Kind {
        alreadyAdded,    ///< `detail` is the name of the source with that feed
        invalidAddress,  ///< the text is no address and no handle
        empty,           ///< a feed without a story
        fetchFailed      ///< `detail` is the error of the fetch
    };

    Kind kind = Kind::invalidAddress;
    std::string detail{};

    /// The text shown to the user.
    std::string description() const;

    bool operator==(const AddSourceError&) const = default;
};

/// What a typed address would add.
struct AddressCheck {
    std::string name{};     ///< of the source as it would be added
    std::string feedURL{};  ///< possibly found through a web page
    std::string siteURL{};
    std::size_t storyCount = 0;  ///< stories that would be stored
    std::size_t collapsed = 0;   ///< others that share their link with one of those
    std::size_t tooOld = 0;      ///< others that were published too long ago
    std::optional<kit::Instant> newestStory{};
    std::size_t aboutApple = 0;       ///< of the stories
    std::vector<kit::Story> first{};  ///< a few of the stories, in the feed's order
};

/// Adds sources by what a user types: a feed, a website, a handle or a channel. It fetches the
/// candidates in turn; the first feed with a story counts.
class SourceAdder {
public:
    using Checked = std::variant<AddressCheck, AddSourceError>;
    using Added = std::variant<kit::NewsSource, AddSourceError>;

    /// `retention`: how long the desk keeps stories.
    SourceAdder(LocalStore& store, SourceRegistry& registry, FetchStack& stack, kit::Clock clock,
                std::chrono::duration<double> retention);

    /// Changes nothing. `watch` follows the addresses that are asked.
    boost::asio::awaitable<Checked> check(std::string typed, kit::FetchWatch watch = {});

    /// Both throw StoreError.
    boost::asio::awaitable<Added> add(std::string typed);
    /// Adds the address as it is, without fetching.
    Added addWithoutFetching(std::string_view typed);

private:
    AddressCheck describe(const std::string& candidate,
                          const kit::SourceFetch::Stories& stories) const;
    Added write(const std::string& name, const std::string& feedURL, const std::string& siteURL);

    LocalStore& store_;
    SourceRegistry& registry_;
    FetchStack& stack_;
    kit::Clock clock_;
    std::chrono::duration<double> retention_;
};

}  // namespace app
