#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "NewsroomKit/Library/Clip.h"
#include "NewsroomKit/Library/SavedStory.h"
#include "NewsroomKit/Text/TimeZone.h"

namespace kit {

enum class CitationStyle { plain, markdown, bibtex, ris, apa };

template <>
inline constexpr std::array<EnumRow<CitationStyle>, 5> enumTable<CitationStyle>{{
    {CitationStyle::plain, "plain", "Plain text"},
    {CitationStyle::markdown, "markdown", "Markdown"},
    {CitationStyle::bibtex, "bibtex", "BibTeX"},
    {CitationStyle::ris, "ris", "RIS"},
    {CitationStyle::apa, "apa", "APA"},
}};

/// What a citation tells of an article, as it was found: nothing is escaped yet.
struct CitedWork {
    std::string title{};
    std::string link{};
    std::string outlet{};  ///< who published it
    std::optional<std::string> author{};
    std::optional<Instant> publishedAt{};
    Instant accessedAt{};

    bool operator==(const CitedWork&) const = default;
};

CitedWork citedWork(const Clip& clip);
/// The outlet and the article behind a redirect, when they are known. Accessed when the kept text
/// was fetched, if there is one, otherwise when the story was saved.
CitedWork citedWork(const SavedStory& story, const SavedText* text = nullptr);

/// One citation; dates are the days of `zone`. Plain, Markdown and APA are one line without an
/// ending; BibTeX and RIS are an entry with its line breaks (LF, and CR LF for RIS).
std::string citation(const CitedWork& work, CitationStyle style, const TimeZone& zone);

/// Several as one text or file: a line or an entry each, in their order. In BibTeX and RIS a work
/// that is cited several times stands once, as it comes first.
std::string citations(std::span<const CitedWork> works, CitationStyle style, const TimeZone& zone);

/// The ending of a file of citations, with its dot.
std::string_view fileEnding(CitationStyle style);

/// A clip as it is pasted into a text: the quote and, below it, its citation. Markdown has a quote
/// block, every other style quotation marks.
std::string quoteWithCitation(const Clip& clip, CitationStyle style, const TimeZone& zone);

}  // namespace kit
