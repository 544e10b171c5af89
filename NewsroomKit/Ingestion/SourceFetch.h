#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <variant>
#include <vector>

#include "NewsroomKit/HTTP/HTTPClient.h"
#include "NewsroomKit/Stories/Story.h"

namespace kit {

/// The outcome of fetching one source.
struct SourceFetch {
    struct Stories {
        std::vector<Story> list{};  ///< in the feed's order; none when the feed is empty
        std::string feedTitle{};    ///< the feed's own title; may be empty
        /// The address that was read: the source's own, or that of its page's feed.
        std::string feedURL{};
        std::string pageTitle{};  ///< of the web page that named the feed, if any
    };
    struct Failed {
        std::string text{};  ///< shown to the user
        bool cancelled = false;
        bool offline = false;  ///< this computer has no network, so the source has not failed
    };
    struct Unchanged {};

    std::variant<Stories, Failed, Unchanged> outcome = Unchanged{};
    HTTPClient::Record record{};  ///< of the request
};

/// An address that is asked on the way to a feed, for a user who watches.
struct FetchAttempt {
    enum class Outcome {
        underWay,
        page,    ///< a web page that names feeds
        feed,    ///< the first feed with a story is used
        failed,  ///< for `reason`
        untried  ///< named by the page, and not needed or not worth another request
    };

    std::string address{};
    Outcome outcome = Outcome::underWay;
    std::size_t count = 0;  ///< of the feeds that the page names, or of the feed's stories
    std::string reason{};   ///< shown to the user
    std::chrono::milliseconds elapsed{0};

    bool operator==(const FetchAttempt&) const = default;
};

/// Called for each address: before it is asked and with its answer.
using FetchWatch = std::function<void(const FetchAttempt&)>;

}  // namespace kit
