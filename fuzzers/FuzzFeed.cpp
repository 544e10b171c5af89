#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "NewsroomKit/Feeds/FeedParser.h"
#include "NewsroomKit/Text/Unicode.h"

// Any bytes: no crash, never more entries than allowed, and only valid UTF-8 comes out.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto parsed = kit::parseFeed({reinterpret_cast<const char*>(data), size},
                                       "https://fuzz.example/feeds/all.xml");
    if (!parsed) return 0;
    if (parsed.value().entries.size() > kit::feedEntryLimit) std::abort();
    for (const auto& entry : parsed.value().entries) {
        for (const auto* text :
             {&entry.guid, &entry.title, &entry.link, &entry.summaryHTML, &entry.contentHTML}) {
            if (!kit::isValidUTF8(*text)) std::abort();
        }
        if (entry.imageURL && entry.imageURL->find("/emoji/") != std::string::npos) std::abort();
    }
    return 0;
}
