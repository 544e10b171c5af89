#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "NewsroomKit/Outlines/OutlineParser.h"
#include "NewsroomKit/Outlines/OutlineWriter.h"

// Any bytes: no crash, only https feeds are returned, and a written list reads back the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    auto parsed = kit::parseOutlines({reinterpret_cast<const char*>(data), size});
    if (!parsed) return 0;
    auto& outlines = parsed.value();
    if (outlines.feeds.size() > kit::outlineLimit) std::abort();
    for (const auto& feed : outlines.feeds) {
        if (!feed.feedURL.starts_with("https://")) std::abort();
        if (feed.folders.size() > kit::outlineDepthLimit) std::abort();
    }
    const auto again = kit::parseOutlines(kit::writeOutlines(outlines));
    if (!again && again.error() != kit::OutlineError::tooMany &&
        again.error() != kit::OutlineError::tooLarge) {
        std::abort();
    }
    if (again && again.value().feeds.size() != outlines.feeds.size()) std::abort();
    return 0;
}
