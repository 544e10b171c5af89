#pragma once

#include <cstddef>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Sources/NewsSource.h"

namespace kit {

/// The order in which a pass fetches its sources: first come, first served, but never more
/// than a few requests at once to one host, so that no outlet sees the desk as a crowd.
class FetchQueue {
public:
    struct Limits {
        int perHost = 2;
        int reddit = 1;  ///< answers anonymous readers with 429 sooner than others
    };

    FetchQueue(std::vector<NewsSource> sources, Limits limits);

    /// The next source whose host has room; it counts as in flight until `finished`.
    /// Nothing when no source is left, or when all that are left wait for their host.
    std::optional<NewsSource> take();

    void finished(const NewsSource& source);

    bool isEmpty() const { return waiting_.empty(); }

    /// The host that the source's limits go by: one name for all of Reddit's.
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
