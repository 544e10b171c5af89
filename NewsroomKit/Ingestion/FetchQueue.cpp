#include "NewsroomKit/Ingestion/FetchQueue.h"

#include <algorithm>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Sources/PlatformHosts.h"

namespace kit {

std::string FetchQueue::hostOf(const NewsSource& source) {
    const auto address = WebAddress::parse(source.feedURL);
    if (!address) return {};
    // Reddit's many host names share one server.
    return isHostOrSubhost(address->host, hosts::kReddit) ? std::string(hosts::kReddit)
                                                          : address->host;
}

FetchQueue::FetchQueue(std::vector<NewsSource> sources, Limits limits) : limits_(limits) {
    for (auto& source : sources) {
        auto host = hostOf(source);
        waiting_.push_back({std::move(source), std::move(host)});
    }
}

std::optional<NewsSource> FetchQueue::next() {
    const auto next = std::find_if(waiting_.begin(), waiting_.end(),
                                   [&](const Waiting& entry) { return hasRoom(entry.host); });
    if (next == waiting_.end()) return std::nullopt;
    NewsSource source = std::move(next->source);
    ++inFlight_[next->host];
    waiting_.erase(next);
    return source;
}

void FetchQueue::finished(const NewsSource& source) {
    const auto entry = inFlight_.find(hostOf(source));
    if (entry != inFlight_.end() && --entry->second == 0) inFlight_.erase(entry);
}

bool FetchQueue::hasRoom(const std::string& host) const {
    const auto entry = inFlight_.find(host);
    const int limit = host == hosts::kReddit ? limits_.reddit : limits_.perHost;
    return entry == inFlight_.end() || entry->second < limit;
}

}  // namespace kit
