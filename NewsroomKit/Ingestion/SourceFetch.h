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
        std::string feedTitle{};    ///< as the feed names itself; empty when it does not
        std::string feedURL{};      ///< what was read: the source's address, or its page's feed
        std::string pageTitle{};    ///< of the web page that led to the feed, when one did
    };
    struct Failed {
        std::string text{};  ///< shown to the user
        bool cancelled = false;
        bool offline = false;  ///< this computer has no network, so the source is not to blame
    };
    struct Unchanged {};

    std::variant<Stories, Failed, Unchanged> outcome = Unchanged{};
    HTTPClient::Record record{};  ///< of the request that brought it
};

}  // namespace kit
