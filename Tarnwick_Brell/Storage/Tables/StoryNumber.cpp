#include "Tarnwick_Brell/Storage/Tables/StoryNumber.h"

#include <algorithm>
#include <string>

#include "NewsroomKit/Text/Folding.h"
#include "Tarnwick_Brell/Storage/SQLite/Instants.h"

namespace app {

std::int64_t firstStoryNumber(kit::Instant publishedAt) {
    using namespace std::chrono;
    constexpr kit::Instant earliest = sys_days(1750y / 1 / 1);
    constexpr kit::Instant latest = sys_days(2200y / 1 / 1);
    return app::microseconds(std::clamp(publishedAt, earliest, latest)) * kStoriesPerMicrosecond;
}

bool isUndated(kit::Instant publishedAt, kit::Instant seen) {
    // Converted at most so long before it was written.
    return abs(seen - publishedAt) < std::chrono::minutes(2);
}

std::int64_t titleKey(std::string_view title) {
    constexpr std::uint64_t offsetBasis = 14695981039346656037u;
    constexpr std::uint64_t prime = 1099511628211u;
    std::uint64_t hash = offsetBasis;
    bool space = false;
    bool begun = false;
    const auto add = [&](char byte) {
        hash ^= static_cast<unsigned char>(byte);
        hash *= prime;
    };
    for (const char c : kit::fold(title)) {
        if (c == ' ' || c == '\t' || c == '\n') {
            space = begun;
            continue;
        }
        if (space) add(' ');
        add(c);
        space = false;
        begun = true;
    }
    return static_cast<std::int64_t>(hash);
}

}  // namespace app
