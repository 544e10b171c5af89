#pragma once

#include <cstddef>
#include <string>
#include <variant>
#include <vector>

#include "NewsroomKit/HTTP/HTTPClient.h"
#include "NewsroomKit/Stories/Story.h"

namespace newsroom {

/// The outcome of fetching one source.
struct SourceFetch {
    struct Stories {
        std::vector<Story> list{};  ///< in the feed's order, at least one
        std::string feedTitle{};    ///< as the feed names itself; empty when it does not
        std::string feedURL{};      ///< what was read: the source's address, or its page's feed
    };
    struct Failed {
        std::string text{};  ///< shown to the user
        bool cancelled = false;
    };
    struct Unchanged {};

    std::variant<Stories, Failed, Unchanged> outcome = Unchanged{};
    HTTPClient::Record record{};  ///< of the request that brought it
};

}  // namespace newsroom
