#pragma once

#include <cstddef>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Sources/NewsSource.h"

namespace kit {

/// The order in which a pass fetches its sources: first in, first out, but only a few requests at a
/// time per host, so that no server is flooded.
class FetchQueue {
public:
    struct Limits {
        int perHost = 2;
        int reddit = 1;  ///< answers anonymous readers with 429 sooner than others
    };

    FetchQueue(std::vector<NewsSource> sources, Limits limits);

    /// The next source whose host has a free slot; it is in flight until `finished`. Nothing when
    /// no source is left or all remaining ones wait for their host.
    std::optional<NewsSource> next();

    void finished(const NewsSource& source);

    bool isEmpty() const { return waiting_.empty(); }

    /// The host to which the limits of the source apply; one name for all of Reddit's.
    static std::string hostOf(const NewsSource& source);

private:
    struct Waiting {
        NewsSource source;
        std::string host;
    };

    bool hasRoom(const std::string& host) const;

    std::deque<Waiting> waiting_;
    std::map<std::string, int> inFlight_;
    Limits limits_;
};

}  // namespace kit
