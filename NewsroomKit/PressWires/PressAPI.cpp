#include "NewsroomKit/PressWires/PressAPI.h"

#include <utility>

#include "NewsroomKit/PressWires/PressFeed.h"

namespace kit {

PressSheet PressAPI::parse(std::string_view body) {
    auto parsed = parsePress(body);
    if (!parsed) throw RecordError("", parsed.error().description);
    return std::move(parsed).value();
}

boost::asio::awaitable<FetchedFile<PressSheet>> PressAPI::sheet(std::string address) const {
    return fetchFile(http, std::move(address), kByteLimit, parse);
}

}  // namespace kit
