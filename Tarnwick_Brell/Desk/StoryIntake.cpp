#include "Tarnwick_Brell/Desk/StoryIntake.h"

#include <algorithm>
#include <string_view>

#include "NewsroomKit/Editorial/AppleTopic.h"
#include "NewsroomKit/Text/Unicode.h"

namespace app {

using kit::Instant;
using kit::NewsSource;
using kit::Story;

namespace {

/// A single user-perceived character can have any number of accents, so bytes count as well.
struct TextLimit {
    std::size_t characters;
    std::size_t bytes;
};

constexpr TextLimit kTitle{2000, 65'536};
constexpr TextLimit kSummary{1000, 32'768};
constexpr TextLimit kName{200, 4096};
constexpr std::size_t kLinkBytes = 8192;
constexpr std::size_t kMostCredits = 50;

std::string_view firstBytes(std::string_view text, std::size_t count) {
    if (text.size() <= count) return text;
    const auto isContinuation = [](char byte) { return (byte & 0xC0) == 0x80; };
    while (count > 0 && isContinuation(text[count])) --count;
    return text.substr(0, count);
}

void cut(std::string& text, TextLimit limit) {
    if (text.size() <= limit.characters) return;
    text.resize(kit::firstCharacters(firstBytes(text, limit.bytes), limit.characters).size());
}

void cut(std::optional<std::string>& text, TextLimit limit) {
    if (text) cut(*text, limit);
}

bool isAbsurd(const std::optional<std::string>& link) { return link && link->size() > kLinkBytes; }

void cutTexts(Story& story) {
    cut(story.title, kTitle);
    cut(story.summary, kSummary);
    cut(story.author, kName);
    cut(story.sourceName, kName);
    cut(story.destinationName, kName);
    if (isAbsurd(story.imageURL)) story.imageURL.reset();
    std::erase_if(story.credits, [](const auto& credit) { return isAbsurd(credit.url); });
    if (story.credits.size() > kMostCredits) story.credits.resize(kMostCredits);
    for (auto& credit : story.credits) {
        cut(credit.platform, kName);
        cut(credit.name, kName);
        cut(credit.detail, kName);
    }
}

bool isWanted(const Story& story, const NewsSource& source, Instant oldest) {
    if (story.publishedAt < oldest || story.link.size() > kLinkBytes) return false;
    return !source.onlyApple || isAboutApple(story);
}

}  // namespace

std::vector<Story> storiesToStore(const NewsSource& source, std::vector<Story> stories,
                                  StoryTimes times) {
    for (auto& story : stories) {
        cutTexts(story);
        story.publishedAt = std::min(story.publishedAt, times.latest);
    }
    std::erase_if(stories,
                  [&](const Story& story) { return !isWanted(story, source, times.oldest); });
    return stories;
}

bool isAboutApple(const Story& story) {
    return kit::AppleTopic::matches(story.title) || kit::AppleTopic::matches(story.summary);
}

std::optional<Instant> newestOf(const std::vector<Story>& stories) {
    std::optional<Instant> newest;
    for (const auto& story : stories) newest = std::max(newest, std::optional(story.publishedAt));
    return newest;
}

std::string shortenedName(std::string_view name) {
    std::string kept(name);
    cut(kept, kName);
    return kept;
}

}  // namespace app
