#include "Tarnwick_Brell/CommandLine/SourceText.h"

#include <fmt/format.h>

namespace cli {

std::string collapsedText(std::int64_t stories, std::int64_t collapsed) {
    if (collapsed == 0) return {};
    return fmt::format(", {} more {} {}", collapsed, collapsed == 1 ? "shares" : "share",
                       stories == 1 ? "its link" : "a link with one of them");
}

std::string storyCountText(std::int64_t stories, std::int64_t collapsed) {
    if (stories == 0) return "no stories in it";
    return fmt::format("{} {}{}", stories, stories == 1 ? "story" : "stories",
                       collapsedText(stories, collapsed));
}

}  // namespace cli
