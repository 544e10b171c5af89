#include "NewsroomKit/Library/ClipMaking.h"

#include <algorithm>

#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

constexpr std::size_t kContextCharacters = 32;
/// More than those characters can have in any language.
constexpr std::size_t kContextBytes = 512;

std::string lastCharacters(std::string_view text) {
    if (text.size() > kContextBytes) text.remove_prefix(text.size() - kContextBytes);
    // Not from within a character.
    while (!text.empty() && (static_cast<unsigned char>(text.front()) & 0xC0U) == 0x80U)
        text.remove_prefix(1);
    const auto count = characterCount(text);
    const auto before = count > kContextCharacters ? count - kContextCharacters : 0;
    return std::string(text.substr(firstCharacters(text, before).size()));
}

/// Sets what stands around the quote; false when it isn't in the text.
bool findContext(Clip& clip, std::string_view text) {
    const auto at = text.find(clip.quote);
    if (clip.quote.empty() || at == std::string_view::npos) return false;
    clip.prefix = lastCharacters(text.substr(0, at));
    clip.suffix = std::string(firstCharacters(
        text.substr(at + clip.quote.size()).substr(0, kContextBytes), kContextCharacters));
    return true;
}

}  // namespace

Clip madeClip(const Story& story, const Article* article, std::string_view quote) {
    Clip clip{.quote = std::string(quote),
              .storyID = story.id,
              .link = story.articleLink.value_or(story.link),
              .title = story.title,
              .sourceName = story.shownDestinationName().value_or(story.sourceName),
              .author = story.author,
              .publishedAt = story.publishedAt};
    std::string text;
    if (article) {
        for (const auto& block : article->blocks) text += (text.empty() ? "" : "\n") + block.text;
    }
    if (!findContext(clip, text) && !findContext(clip, story.summary))
        findContext(clip, story.title);
    return clip;
}

}  // namespace kit
