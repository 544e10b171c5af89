#include "Tarnwick_Brell/CommandLine/WireLine.h"

#include <fmt/format.h>

#include "Tarnwick_Brell/CommandLine/StoryText.h"
#include "Tarnwick_Brell/CommandLine/TerminalText.h"

namespace brell {

namespace {

// Enough of an id to name one story among a hundred thousand.
constexpr std::size_t kIDColumns = 8;
constexpr std::size_t kMarkColumns = 2;
constexpr std::size_t kAgeColumns = 11;
constexpr std::size_t kOutletColumns = 24;
constexpr std::size_t kLabelColumns = 16;
constexpr std::size_t kBeforeTitle =
    kIDColumns + kMarkColumns + kAgeColumns + kOutletColumns + kLabelColumns + 5;
constexpr std::size_t kNarrowestTitle = 20;

std::string marks(const desk::StoredStory& stored) {
    return std::string(stored.readAt ? " " : "•") + (stored.savedAt ? "★" : " ");
}

}  // namespace

std::string wireLine(const Output& out, const desk::StoredStory& stored, newsroom::Instant now) {
    const auto& story = stored.story;
    const bool cut = out.isTerminal() && out.width() > kBeforeTitle + kNarrowestTitle;
    const auto title = printable(story.title);
    return fmt::format(
        "{} {} {} {} {} {}", out.dim(padTo(story.id.substr(0, kIDColumns), kIDColumns)),
        marks(stored), padTo(age(story.publishedAt, now), kAgeColumns),
        padTo(outletLine(story), kOutletColumns), out.dim(padTo(labelLine(story), kLabelColumns)),
        out.bold(cut ? cutTo(title, out.width() - kBeforeTitle) : title));
}

}  // namespace brell
