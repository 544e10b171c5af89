#include "NewsroomKit/Archive/StoryArchiveAPI.h"

#include "NewsroomKit/Archive/ArchiveFetch.h"

namespace kit {

boost::asio::awaitable<FetchResult<ArchivePage>> StoryArchiveAPI::stories(
    ArchivePeriod period, std::int64_t offset, std::int64_t limit) const {
    return fetchArchiveAnswer<ArchivePage>(http,
                                           ArchiveAddresses{base}.stories(period, offset, limit));
}

boost::asio::awaitable<FetchResult<ArchiveStatus>> StoryArchiveAPI::status() const {
    return fetchArchiveAnswer<ArchiveStatus>(http, ArchiveAddresses{base}.status());
}

boost::asio::awaitable<FetchResult<ServerCredits>> StoryArchiveAPI::credits(
    const std::vector<std::string>& stories) const {
    return fetchArchiveAnswer<ServerCredits>(http, ArchiveAddresses{base}.credits(stories));
}

}  // namespace kit
