#include "NewsroomKit/Queries/TermMarks.h"

#include <algorithm>
#include <string>

#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

/// A text as queries see it, with the way back to the bytes it was made from.
class NormalizedText {
public:
    /// Normalises one user-perceived character after the other, which gives the same as the whole
    /// text at once: they are folded independently.
    void append(std::string_view text) {
        while (!text.empty()) {
            const auto character = firstCharacters(text, 1);
            starts_.push_back({text_.size(), read_});
            PhraseMatcher::appendNormalized(character, text_);
            read_ += character.size();
            text.remove_prefix(character.size());
        }
    }

    std::string_view text() const { return text_; }

    /// The published characters that bytes of the normalised text come from.
    TextRange published(TextRange normalized) const {
        // A character without a normalised form begins where the next one does.
        const auto last = after(normalized.end - 1) - 1;
        const auto first = after(normalized.begin) - 1;
        return {first->published, last + 1 == starts_.end() ? read_ : (last + 1)->published};
    }

private:
    struct Start {
        std::size_t normalized;
        std::size_t published;
    };

    std::vector<Start>::const_iterator after(std::size_t normalized) const {
        return std::ranges::upper_bound(starts_, normalized, {}, &Start::normalized);
    }

    std::string text_;
    std::vector<Start> starts_;
    std::size_t read_ = 0;
};

/// Sorts the ranges and joins those that overlap or touch.
std::vector<TextRange> joined(std::vector<TextRange> ranges) {
    std::ranges::sort(ranges, {}, &TextRange::begin);
    std::vector<TextRange> result;
    for (const auto& range : ranges) {
        if (!result.empty() && range.begin <= result.back().end) {
            result.back().end = std::max(result.back().end, range.end);
        } else {
            result.push_back(range);
        }
    }
    return result;
}

}  // namespace

TermMarks termMarks(std::span<const PhraseMatcher> terms, std::string_view title,
                    std::string_view summary) {
    constexpr std::string_view seam = " \n ";
    NormalizedText text;
    text.append(title);
    text.append(seam);
    text.append(summary);
    const auto summaryBegin = title.size() + seam.size();
    TermMarks marks;
    for (const auto& term : terms) {
        for (std::size_t at = term.find(text.text()); at != std::string_view::npos;
             at = term.find(text.text(), at + 1)) {
            const auto range = text.published({at, at + term.phrase.size()});
            // A term with a line break may span both texts.
            if (range.begin < title.size())
                marks.title.push_back({range.begin, std::min(range.end, title.size())});
            if (range.end > summaryBegin)
                marks.summary.push_back(
                    {std::max(range.begin, summaryBegin) - summaryBegin, range.end - summaryBegin});
        }
    }
    return {.title = joined(std::move(marks.title)), .summary = joined(std::move(marks.summary))};
}

}  // namespace kit
