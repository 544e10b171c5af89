#pragma once

#include <string>
#include <vector>

#include "NewsroomKit/Queries/StoryQuery.h"

namespace arguments {
class Command;
}

namespace cli {

/// The options that select stories.
struct QueryOptions {
    std::string any{};
    std::string exclude{};
    std::vector<std::string> sources{};
    std::vector<std::string> sourcings{};
    bool setAside = false;

    /// Adds the options. This object must live until the command line has been read.
    void addTo(arguments::Command& command);

    /// Whether any of these options was given.
    bool isGiven() const;

    /// Throws WrongUsage. Does not check that the sources exist.
    kit::StoryQuery query() const;
};

/// A query in words: "iPhone 18 or A20, without case, from macrumors", "every story" when it asks
/// for nothing.
std::string queryText(const kit::StoryQuery& query);

}  // namespace cli
