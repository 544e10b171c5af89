#include "NewsroomKit/Feeds/HTMLText.h"

#include <algorithm>

#include "NewsroomKit/Feeds/EmbeddedElements.h"
#include "NewsroomKit/Feeds/HTMLReader.h"
#include "NewsroomKit/Feeds/TextCut.h"
#include "NewsroomKit/Text/Unicode.h"

namespace newsroom {
namespace {

constexpr auto none = std::string_view::npos;
constexpr std::size_t postTitleLimit = 120;

/// Bytes of text that hold `limit` user-perceived characters of any living script, and the
/// footers that may begin among them.
constexpr std::size_t bytesFor(std::size_t limit) {
    constexpr std::size_t bytesOfCharacter = 16;
    constexpr std::size_t bytesOfFooter = 2048;
    constexpr std::size_t longestLimit = 100'000'000;
    return std::min(limit, longestLimit) * bytesOfCharacter + bytesOfFooter;
}

/// Both footers begin with a capital letter, which makes looking for them from the front far
/// cheaper than for their other words.
std::size_t lastStart(std::string_view text, std::string_view words) {
    auto last = none;
    for (auto at = text.find(words); at != none; at = text.find(words, at + 1)) {
        if (at == 0 || text[at - 1] == ' ' || text[at - 1] == '\n') last = at;
    }
    return last;
}

/// "The post <title> appeared first on <site>." as WordPress closes its excerpts, at the
/// start of a line or behind the text.
void dropPostFooter(std::string& text) {
    constexpr std::string_view opening = "The post ";
    auto begin = lastStart(text, opening);
    if (begin == none) return;
    // The title may begin with the same words.
    while (std::string_view(text).substr(0, begin).ends_with(opening)) begin -= opening.size();
    const auto line = std::string_view(text).substr(begin, text.find('\n', begin) - begin);
    if (line.find(" appeared first on ") != none || line.find(" first appeared on ") != none) {
        text.erase(begin, line.size());
    }
}

/// "Continue reading <title> →" at the end of the text that is no link, or no longer one.
void dropContinueReading(std::string& text) {
    const auto begin = lastStart(text, "Continue reading");
    if (begin == none) return;
    const auto rest = std::string_view(text).substr(begin);
    // A sentence or line behind it makes it part of the article.
    for (const std::string_view end : {". ", "! ", "? ", "\n"}) {
        if (rest.find(end) != none) return;
    }
    text.resize(begin);
}

void trimEnd(std::string& text) {
    text.resize(std::min(text.find_last_not_of(" \n") + 1, text.size()));
}

}  // namespace

std::string plainText(std::string_view html) {
    return HTMLReader(html, {}).read();
}

std::string cleanHeadline(std::string_view html) {
    auto text = plainText(html);
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

std::string postTitle(std::string_view html) {
    std::string storage;
    const auto kept = withoutEmbeddedElements(html, storage);
    const bool isPlain = kept.find('<') == none;
    const auto text =
        HTMLReader(kept, {.keepsLineBreaks = isPlain, .enough = bytesFor(postTitleLimit)}).read();
    return cutAtWord(std::string_view(text).substr(0, text.find('\n')), postTitleLimit);
}

std::string excerpt(std::string_view html, std::size_t limit) {
    // 1. Whole elements that hold no prose.
    std::string storage;
    const auto kept = withoutEmbeddedElements(html, storage);

    // 2. Plain text, as much as can be needed.
    auto text =
        HTMLReader(kept, {.dropsContinueLinks = true, .enough = bytesFor(limit)}).read();

    // 3. What the blog engine wrote below the text, each footer possibly below the other.
    dropPostFooter(text);
    trimEnd(text);
    dropContinueReading(text);
    trimEnd(text);

    return cutAtBoundary(text, limit);
}

}  // namespace newsroom
