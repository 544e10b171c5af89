#pragma once

#include <string>
#include <vector>

#include "NewsroomKit/Queries/StoryQuery.h"

namespace CLI {
class App;
}

namespace brell {

/// The words of a command line that say which stories are wanted.
struct QueryOptions {
    std::string any{};
    std::string exclude{};
    std::vector<std::string> sources{};
    std::vector<std::string> sourcings{};
    bool setAside = false;

    /// Must live until the command line has been read.
    void addTo(CLI::App& command);

    /// Throws WrongUsage. Whether the sources exist is not asked.
    newsroom::StoryQuery query() const;
};

}  // namespace brell
