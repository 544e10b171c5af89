#include "NewsroomKit/Feeds/TextTruncation.h"

#include <unicode/brkiter.h>
#include <unicode/utext.h>

#include <array>
#include <memory>

#include "NewsroomKit/Text/Unicode.h"
#include "NewsroomKit/Text/Utf8.h"

namespace kit {
namespace {

constexpr std::string_view ellipsis = "…";

constexpr std::array<std::string_view, 9> closingMarks{"\"", "'", ")",  "]", "”",
                                                       "’",  "»", "」", "』"};
constexpr std::array<std::string_view, 7> sentenceEnds{".", "!", "?", "…", "。", "！", "？"};
constexpr std::array<std::string_view, 7> danglingMarks{",", ";", ":", "-", "–", "—", "("};

template <std::size_t N>
bool dropEnding(std::string_view& text, const std::array<std::string_view, N>& endings) {
    for (const auto ending : endings) {
        if (!text.ends_with(ending)) continue;
        text.remove_suffix(ending.size());
        return true;
    }
    return false;
}

bool isSpaceAt(std::string_view text, std::size_t at) {
    return at < text.size() && (text[at] == ' ' || text[at] == '\n');
}

/// Whether a sentence or line ends between `head` and `tail`. "iOS 26.1 vs. " is followed by a
/// small letter and so does not end one.
bool endsSentence(std::string_view head, std::string_view tail) {
    const auto next = tail.find_first_not_of(" \n");
    if (tail.substr(0, next).find('\n') != std::string_view::npos) return true;
    while (dropEnding(head, closingMarks)) {
    }
    if (!dropEnding(head, sentenceEnds)) return false;
    return next == std::string_view::npos || tail[next] < 'a' || tail[next] > 'z';
}

std::string closed(std::string_view head) {
    head = trimWhitespaceAndNewlines(head);
    while (dropEnding(head, danglingMarks)) head = trimWhitespaceAndNewlines(head);
    std::string text(head);
    if (!head.ends_with(ellipsis)) text += ellipsis;
    return text;
}

/// The last word boundary at or before `end`, for scripts that write without spaces.
std::size_t lastWordBoundary(std::string_view text, std::size_t end) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::BreakIterator> words(
        icu::BreakIterator::createWordInstance(icu::Locale::getRoot(), status));
    if (U_FAILURE(status)) return end;
    UText* const opened =
        utext_openUTF8(nullptr, text.data(), static_cast<std::int64_t>(text.size()), &status);
    words->setText(opened, status);
    std::size_t boundary = end;
    if (U_SUCCESS(status) && !words->isBoundary(static_cast<std::int32_t>(end))) {
        const auto found = words->preceding(static_cast<std::int32_t>(end));
        boundary = found == icu::BreakIterator::DONE ? 0 : static_cast<std::size_t>(found);
    }
    utext_close(opened);
    return boundary;
}

/// Cuts a head without a usable space: another script, or one very long word.
std::string cutInsideWord(std::string_view text, std::size_t room) {
    constexpr std::size_t lookahead = 64;
    const auto boundary = lastWordBoundary(text.substr(0, room + lookahead), room);
    return closed(text.substr(0, boundary > room / 2 ? boundary : room));
}

enum class Sentences { mayEnd, ignored };

std::string cut(std::string_view text, std::size_t limit, Sentences rule) {
    if (limit == 0) return {};
    const auto whole = firstCharacters(text, limit).size();
    if (whole == text.size()) return std::string(text);
    // One character fewer, because "…" counts as one.
    const auto room = firstCharacters(text.substr(0, whole), limit - 1).size();

    for (auto at = whole; at > room / 2; --at) {
        if (!isSpaceAt(text, at)) continue;
        const auto head = trimWhitespaceAndNewlines(text.substr(0, at));
        if (head.empty()) break;
        if (rule == Sentences::mayEnd && endsSentence(head, text.substr(at))) {
            return std::string(head);
        }
        if (at <= room) return closed(head);
    }
    return cutInsideWord(text, room);
}

}  // namespace

std::string cutAtBoundary(std::string_view text, std::size_t limit) {
    return cut(text, limit, Sentences::mayEnd);
}

std::string cutAtWord(std::string_view text, std::size_t limit) {
    return cut(text, limit, Sentences::ignored);
}

}  // namespace kit
