#include "NewsroomKit/Archive/TraceAPI.h"

#include "NewsroomKit/Archive/ArchiveAddresses.h"
#include "NewsroomKit/Archive/ArchiveFetch.h"

namespace kit {

boost::asio::awaitable<FetchResult<TraceResult>> TraceAPI::trace(std::string_view story) const {
    return fetchArchiveAnswer<TraceResult>(http, ArchiveAddresses{base}.trace(story));
}

}  // namespace kit
