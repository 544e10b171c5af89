#include "NewsroomKit/Feeds/HTMLText.h"

#include <algorithm>
#include <utility>

#include "NewsroomKit/Feeds/NonTextElements.h"
#include "NewsroomKit/Feeds/ExcerptEnding.h"
#include "NewsroomKit/Feeds/HTMLReader.h"
#include "NewsroomKit/Feeds/TextTruncation.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

constexpr auto none = std::string_view::npos;
constexpr std::size_t postTitleLimit = 120;

/// Bytes that suffice for `limit` user-perceived characters of any living script, and for the
/// footers that may begin among them.
constexpr std::size_t bytesFor(std::size_t limit) {
    constexpr std::size_t bytesOfCharacter = 16;
    constexpr std::size_t bytesOfFooter = 2048;
    constexpr std::size_t longestLimit = 100'000'000;
    return std::min(limit, longestLimit) * bytesOfCharacter + bytesOfFooter;
}

}  // namespace

std::string plainText(std::string_view html) { return HTMLReader(html, {}).read(); }

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

std::string excerpt(std::string_view html, std::size_t limit, std::string_view itemLink) {
    // 1. Drop whole elements without prose.
    std::string storage;
    const auto kept = withoutEmbeddedElements(html, storage);

    // 2. Read as much plain text as may be needed.
    HTMLReader reader(kept, {.readsLinks = true, .enough = bytesFor(limit)});
    auto text = reader.read();

    // 3. Drop what the publisher's software wrote below the text.
    text = withoutExcerptEnding(std::move(text), reader.takeLinks(), itemLink);

    // 4. After a cut, a line that only divided the text may be the last one.
    auto cut = cutAtBoundary(text, limit);
    if (cut.find('\n') != none) cut.resize(withoutBareLines(cut).size());
    return cut;
}

}  // namespace kit
