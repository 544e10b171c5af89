#pragma once

#include <cstddef>
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

}  // namespace kit
