#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "NewsroomKit/Court/DocketParser.h"
#include "NewsroomKit/PressWires/PressFeed.h"

// Any bytes: no crash, bounded lists, and links of the web alone.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    if (const auto docket = kit::parseDocket(bytes)) {
        for (const auto& entry : docket.value().entries) {
            if (entry.documentLink && !entry.documentLink->starts_with("http")) std::abort();
        }
    }
    if (const auto press = kit::parsePress(bytes)) {
        if (press.value().releases.size() > 10'000) std::abort();
    }
    return 0;
}
