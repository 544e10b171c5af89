#include "NewsroomKit/Library/Citation.h"

#include <algorithm>
#include <unordered_set>

#include <fmt/format.h>

#include "NewsroomKit/Library/LineText.h"
#include "NewsroomKit/Library/ReferenceEntry.h"
#include "NewsroomKit/Stories/CanonicalLink.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

using Day = std::chrono::year_month_day;

constexpr std::array<std::string_view, 12> kMonths{"January",   "February", "March",    "April",
                                                   "May",       "June",     "July",     "August",
                                                   "September", "October",  "November", "December"};

Day dayOf(Instant instant, const TimeZone& zone) {
    return Day{std::chrono::floor<std::chrono::days>(zone.shownAt(instant))};
}

/// "21 November 2026"
std::string spokenDay(Day day) {
    return fmt::format("{} {} {}", static_cast<unsigned>(day.day()),
                       kMonths[static_cast<unsigned>(day.month()) - 1],
                       static_cast<int>(day.year()));
}

/// "November 21"
std::string monthAndDay(Day day) {
    return fmt::format("{} {}", kMonths[static_cast<unsigned>(day.month()) - 1],
                       static_cast<unsigned>(day.day()));
}

/// "A", "A and B", "A, B and C", with what stands before the last.
std::string listed(const std::vector<std::string>& items, std::string_view beforeLast) {
    std::string text;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (i > 0) text += i + 1 == items.size() ? beforeLast : ", ";
        text += items[i];
    }
    return text;
}

std::string spokenNames(const CitedParts& parts) {
    std::vector<std::string> names;
    for (const auto& name : parts.names) names.push_back(name.asSpoken());
    return listed(names, " and ");
}

bool endsSentence(std::string_view text) {
    return text.ends_with('.') || text.ends_with('?') || text.ends_with('!') || text.ends_with("…");
}

/// The text as a sentence of its own.
std::string closed(std::string text) { return endsSentence(text) ? text : text + '.'; }

/// "The Orchard Post, 21 November 2026", as far as both are known.
std::string outletAndDay(const std::string& outlet, const std::optional<Day>& day) {
    if (!day) return outlet;
    return outlet.empty() ? spokenDay(*day) : outlet + ", " + spokenDay(*day);
}

std::string plainCitation(const CitedParts& parts) {
    std::string text;
    if (!parts.names.empty()) text = spokenNames(parts) + ": ";
    text += "“" + parts.title + (endsSentence(parts.title) ? "”" : ".”");
    if (const auto where = outletAndDay(parts.outlet, parts.published); !where.empty())
        text += ' ' + where + '.';
    return text + ' ' + parts.link + " (accessed " + spokenDay(parts.accessed) + ')';
}

std::string markdownCitation(const CitedParts& parts) {
    std::string text;
    if (!parts.names.empty()) text = escapedMarkdown(spokenNames(parts)) + ": ";
    const auto title = escapedMarkdown(parts.title);
    text += isWebLink(parts.link) ? "[" + title + "](" + parts.link + ")" : title;
    text += '.';
    const auto outlet = parts.outlet.empty() ? "" : '*' + escapedMarkdown(parts.outlet) + '*';
    if (const auto where = outletAndDay(outlet, parts.published); !where.empty())
        text += ' ' + where + '.';
    return text + " Accessed " + spokenDay(parts.accessed) + '.';
}

/// "Doe, J.-L., Jr."
std::string apaName(const CitedName& name) {
    auto text = name.family;
    std::string initials;
    bool begins = true;
    for (std::size_t at = 0; at < name.given.size();) {
        const auto letter = firstCharacters(std::string_view(name.given).substr(at), 1);
        if (letter == " " || letter == "-") {
            initials += letter;
            begins = true;
        } else if (begins) {
            initials += std::string(letter) + '.';
            begins = false;
        }
        at += letter.size();
    }
    if (!initials.empty()) text += ", " + initials;
    if (!name.suffix.empty()) text += ", " + name.suffix;
    return text;
}

std::string apaDate(const std::optional<Day>& day) {
    if (!day) return "(n.d.)";
    return fmt::format("({}, {})", static_cast<int>(day->year()), monthAndDay(*day));
}

std::string apaCitation(const CitedParts& parts) {
    std::vector<std::string> names;
    for (const auto& name : parts.names) names.push_back(apaName(name));
    const auto date = apaDate(parts.published);
    const auto title = closed(parts.title);
    auto text = names.empty() ? title + ' ' + date + '.'
                              : closed(listed(names, ", & ")) + ' ' + date + ". " + title;
    if (!parts.outlet.empty()) text += ' ' + closed(parts.outlet);
    return text + fmt::format(" Retrieved {}, {}, from {}", monthAndDay(parts.accessed),
                              static_cast<int>(parts.accessed.year()), parts.link);
}

std::string citationOf(const CitedParts& parts, CitationStyle style,
                       std::set<std::string>& takenKeys) {
    switch (style) {
        case CitationStyle::plain: return plainCitation(parts);
        case CitationStyle::markdown: return markdownCitation(parts);
        case CitationStyle::apa: return apaCitation(parts);
        case CitationStyle::ris: return risEntry(parts);
        case CitationStyle::bibtex: break;
    }
    return bibtexEntry(parts, citationKey(parts, takenKeys));
}

}  // namespace

CitedWork citedWork(const Clip& clip) {
    return {.title = clip.title,
            .link = clip.link,
            .outlet = clip.sourceName,
            .author = clip.author,
            .publishedAt = clip.publishedAt,
            .accessedAt = clip.accessedAt};
}

CitedWork citedWork(const SavedStory& story, const SavedText* text) {
    const bool isImportedLink = story.sourceID.empty();
    return {.title = story.title,
            .link = story.articleLink.value_or(story.link),
            .outlet = story.destinationName.value_or(story.sourceName),
            .author = story.author,
            .publishedAt = isImportedLink ? std::nullopt : std::optional(story.publishedAt),
            .accessedAt = text ? text->fetchedAt : story.savedAt};
}

CitedParts citedParts(const CitedWork& work, const TimeZone& zone) {
    CitedParts parts;
    parts.outlet = singleLine(work.outlet);
    const std::array outlets{parts.outlet};
    parts.names = citedNames(work.author.value_or(""), outlets);
    if (parts.names.size() == 1 && equalIgnoringCase(parts.names.front().family, parts.outlet))
        parts.outlet.clear();
    parts.link = safeLink(work.link);
    parts.title = singleLine(work.title);
    if (parts.title.empty()) parts.title = parts.link;
    if (work.publishedAt) parts.published = dayOf(*work.publishedAt, zone);
    parts.accessed = dayOf(work.accessedAt, zone);
    return parts;
}

std::string citation(const CitedWork& work, CitationStyle style, const TimeZone& zone) {
    std::set<std::string> taken;
    return citationOf(citedParts(work, zone), style, taken);
}

std::string citations(std::span<const CitedWork> works, CitationStyle style, const TimeZone& zone) {
    const bool isFileOfWorks = style == CitationStyle::bibtex || style == CitationStyle::ris;
    std::set<std::string> taken;
    std::unordered_set<std::string> cited;
    std::string text;
    for (const auto& work : works) {
        if (isFileOfWorks && !cited.insert(canonicalLink(work.link)).second) continue;
        if (isFileOfWorks && !text.empty()) text += style == CitationStyle::ris ? "\r\n" : "\n";
        if (style == CitationStyle::markdown) text += "- ";
        text += citationOf(citedParts(work, zone), style, taken);
        if (!isFileOfWorks) text += '\n';
    }
    return text;
}

std::string_view fileEnding(CitationStyle style) {
    switch (style) {
        case CitationStyle::markdown: return ".md";
        case CitationStyle::bibtex: return ".bib";
        case CitationStyle::ris: return ".ris";
        case CitationStyle::plain:
        case CitationStyle::apa: break;
    }
    return ".txt";
}

std::string quoteWithCitation(const Clip& clip, CitationStyle style, const TimeZone& zone) {
    const auto cited = citation(citedWork(clip), style, zone);
    const auto shown = withoutControls(clip.quote);
    const auto quote = trimWhitespaceAndNewlines(shown);
    if (style != CitationStyle::markdown) return fmt::format("“{}”\n\n{}\n", quote, cited);
    std::string text;
    for (std::size_t begin = 0; begin <= quote.size();) {
        const auto end = std::min(quote.find('\n', begin), quote.size());
        const auto line = escapedMarkdown(quote.substr(begin, end - begin));
        text += line.empty() ? ">\n" : "> " + line + '\n';
        begin = end + 1;
    }
    return text + ">\n> — " + cited + '\n';
}

}  // namespace kit
