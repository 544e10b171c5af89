#include "NewsroomKit/Pages/ChangeSentence.h"

#include <algorithm>
#include <string_view>

#include <fmt/format.h>

#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

/// Words shown on either side of a change, so that a reader finds the place.
constexpr std::size_t contextWords = 8;
constexpr std::size_t longestHeading = 120;
constexpr std::size_t longestQuote = 4'000;
constexpr std::size_t longestSentence = 8'000;

std::string cut(std::string_view text, std::size_t limit) {
    if (text.size() <= limit) return std::string(text);
    const auto shown = firstCharacters(text, limit);
    return shown.size() == text.size() ? std::string(text) : std::string(shown) + "…";
}

/// Code has lines; a sentence has one.
std::string onOneLine(std::string_view text) {
    return fmt::format("{}", fmt::join(wordsOf(text), " "));
}

std::string quoted(const PageBlock& block) {
    return fmt::format("\"{}\"", cut(onOneLine(block.text), longestQuote));
}

/// `word` is "in", "to" or "from".
std::string place(const PageBlock& block, std::string_view word) {
    if (block.headings.empty()) return {};
    return fmt::format(" {} \"{}\"", word, cut(onOneLine(block.headings.back()), longestHeading));
}

using Words = std::vector<std::string_view>;

std::string joined(const Words& words, std::size_t begin, std::size_t end) {
    const auto first = words.begin();
    return fmt::format("{}", fmt::join(first + static_cast<std::ptrdiff_t>(begin),
                                       first + static_cast<std::ptrdiff_t>(end), " "));
}

/// The words from `begin` to `end` with some of those around them.
std::string inContext(const Words& words, std::size_t begin, std::size_t end) {
    const auto from = begin - std::min(begin, contextWords);
    const auto to = std::min(words.size(), end + contextWords);
    return fmt::format("{}{}{}", from > 0 ? "…" : "", joined(words, from, to),
                       to < words.size() ? "…" : "");
}

std::string phrase(const WordDiff& diff, const WordChange& change) {
    const auto context = inContext(diff.after, change.afterBegin, change.afterEnd);
    const auto old = joined(diff.before, change.beforeBegin, change.beforeEnd);
    const auto fresh = joined(diff.after, change.afterBegin, change.afterEnd);
    if (old.empty()) return fmt::format("\"{}\" was added in \"{}\"", fresh, context);
    if (fresh.empty()) {
        return fmt::format("\"{}\" was removed from \"{}\"", old,
                           inContext(diff.before, change.beforeBegin, change.beforeEnd));
    }
    return fmt::format("\"{}\" became \"{}\" in \"{}\"", old, fresh, context);
}

std::string phrases(const WordDiff& diff) {
    std::string text;
    std::size_t said = 0;
    for (const auto& change : diff.changes) {
        if (text.size() > longestSentence) break;
        if (said++ > 0) text += "; ";
        text += phrase(diff, change);
    }
    if (said < diff.changes.size()) {
        text += fmt::format("; and {} more", diff.changes.size() - said);
    }
    return text;
}

}  // namespace

std::string changedSentence(const PageBlock& before, const PageBlock& after, const WordDiff& diff) {
    if (after.kind == PageBlock::Kind::heading) {
        return fmt::format("The heading {} is now {}", quoted(before), quoted(after));
    }
    if (diff.isRewritten) {
        return fmt::format("Rewritten{}: {} became {}", place(after, "in"), quoted(before),
                           quoted(after));
    }
    if (diff.changes.empty()) {
        return fmt::format("Changed in punctuation{}: {}", place(after, "in"), quoted(after));
    }
    return fmt::format("Changed{}: {}", place(after, "in"), phrases(diff));
}

std::string addedSentence(const PageBlock& block) {
    return fmt::format("Added{}: {}", place(block, "to"), quoted(block));
}

std::string removedSentence(const PageBlock& block) {
    return fmt::format("Removed{}: {}", place(block, "from"), quoted(block));
}

std::string movedSentence(const PageBlock& block) {
    return fmt::format("Moved{}: {}", place(block, "to"), quoted(block));
}

std::string linksSentence(const PageBlock& before, const PageBlock& after) {
    std::string text;
    const auto count = std::max(before.links.size(), after.links.size());
    for (std::size_t i = 0; i < count && text.size() < longestSentence; ++i) {
        const auto* old = i < before.links.size() ? &before.links[i] : nullptr;
        const auto* fresh = i < after.links.size() ? &after.links[i] : nullptr;
        if (old && fresh && old->url == fresh->url) continue;
        if (!text.empty()) text += "; ";
        if (!old) {
            text += fmt::format("\"{}\" now leads to {}", fresh->text, fresh->url);
        } else if (!fresh) {
            text += fmt::format("\"{}\" no longer leads to {}", old->text, old->url);
        } else {
            text += fmt::format("\"{}\" led to {} and now leads to {}", fresh->text, old->url,
                                fresh->url);
        }
    }
    return fmt::format("Links changed{}: {}", place(after, "in"), text);
}

}  // namespace kit
