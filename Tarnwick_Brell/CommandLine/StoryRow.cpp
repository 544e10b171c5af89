#include "Tarnwick_Brell/CommandLine/StoryRow.h"

#include <algorithm>

#include <fmt/format.h>

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "Tarnwick_Brell/CommandLine/StoryText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"

namespace cli {

namespace {

// Enough of an id to identify one story among a hundred thousand.
constexpr std::size_t kIDColumns = 8;
constexpr std::size_t kMarkColumns = 2;
constexpr std::size_t kRowAgeColumns = 11;
constexpr std::size_t kNarrowestTitle = 12;

/// The widths of the columns before the headline; 0 omits a column.
struct Layout {
    std::size_t age = kRowAgeColumns;
    std::size_t outlet = 24;
    std::size_t labels = 16;

    std::size_t beforeTitle() const {
        std::size_t columns = kIDColumns + 1 + kMarkColumns + 1;
        for (const auto part : {age, outlet, labels}) columns += part > 0 ? part + 1 : 0;
        return columns;
    }
};

/// The same for every story of a list, so that columns align.
Layout layoutFor(std::size_t width) {
    if (width >= 100) return {};
    if (width >= 72) return {.outlet = 16, .labels = 0};
    if (width >= 54) return {.outlet = 12, .labels = 0};
    if (width >= 40) return {.outlet = 0, .labels = 0};
    return {.age = 0, .outlet = 0, .labels = 0};
}

std::string marks(const app::StoredStory& stored) {
    return std::string(stored.readAt ? " " : "•") + (stored.savedAt ? "★" : " ");
}

}  // namespace

std::string wireLine(const Output& out, const app::StoredStory& stored, kit::Instant now) {
    const auto& story = stored.story;
    const auto layout = layoutFor(out.width());
    auto line = fmt::format("{} {} ", out.dim(padTo(story.id.substr(0, kIDColumns), kIDColumns)),
                            marks(stored));
    if (layout.age > 0) line += padTo(ageText(story.publishedAt, now), layout.age) + " ";
    if (layout.outlet > 0) line += padTo(outletLine(story), layout.outlet) + " ";
    if (layout.labels > 0) line += out.dim(padTo(labelLine(story), layout.labels)) + " ";
    const auto before = layout.beforeTitle();
    const auto room = out.width() > before ? out.width() - before : 0;
    const auto title = cutTo(printable(story.title), std::max(room, kNarrowestTitle));
    return line + out.bold(out.link(story.link, title));
}

std::string linkLine(const app::StoredStory& stored) {
    return std::string(kIDColumns + 1, ' ') + printable(kit::maskedLogins(stored.story.link));
}

}  // namespace cli
