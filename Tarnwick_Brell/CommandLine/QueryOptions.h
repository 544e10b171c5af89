#pragma once

#include <string>
#include <vector>

#include "NewsroomKit/Queries/StoryQuery.h"

namespace arguments {
class Command;
}

namespace cli {

/// "iPhone 18, A20" in its pieces.
std::vector<std::string> separatedByCommas(const std::string& list);

/// The words of a command line that say which stories are wanted.
struct QueryOptions {
    std::string any{};
    std::string exclude{};
    std::vector<std::string> sources{};
    std::vector<std::string> sourcings{};
    bool setAside = false;

    /// Must live until the command line has been read.
    void addTo(arguments::Command& command);

    /// Whether any of these words was given.
    bool isGiven() const;

    /// Throws WrongUsage. Whether the sources exist is not asked.
    kit::StoryQuery query() const;
};

}  // namespace cli
