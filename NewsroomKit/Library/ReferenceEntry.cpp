#include "NewsroomKit/Library/ReferenceEntry.h"

#include <array>

#include <fmt/format.h>

#include "NewsroomKit/Library/LineText.h"
#include "NewsroomKit/Stories/CanonicalLink.h"
#include "NewsroomKit/Stories/StoryIdentity.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Folding.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

constexpr std::size_t kLongestKeyWord = 20;
constexpr std::size_t kHashLetters = 4;

/// The letters and digits of a text that a key may hold.
std::string keyWord(std::string_view folded) {
    std::string word;
    for (const char c : folded) {
        if (isASCIIAlphanumeric(c) && word.size() < kLongestKeyWord) word += c;
    }
    return word;
}

/// The first word that tells one title from another.
std::string keyWordOfTitle(const std::string& title) {
    static constexpr std::array<std::string_view, 18> common{
        "a",  "an", "the", "of", "in",  "on",  "for", "to",   "and",
        "is", "at", "by",  "as", "how", "why", "its", "with", "from"};
    const auto folded = fold(title);
    for (std::string_view rest = folded; !rest.empty();) {
        auto word = keyWord(rest.substr(0, rest.find(' ')));
        if (!word.empty() && std::ranges::find(common, word) == common.end()) return word;
        rest.remove_prefix(std::min(rest.find(' '), rest.size() - 1) + 1);
    }
    return "";
}

/// BibTeX counts braces even behind a backslash, so that braces in a text need names.
std::string_view texEscape(char c) {
    switch (c) {
        case '\\': return "\\textbackslash{}";
        case '{': return "\\textbraceleft{}";
        case '}': return "\\textbraceright{}";
        case '~': return "\\textasciitilde{}";
        case '^': return "\\textasciicircum{}";
        case '$': return "\\$";
        case '&': return "\\&";
        case '#': return "\\#";
        case '_': return "\\_";
        case '%': return "\\%";
        default: return "";
    }
}

std::string escapedTeX(std::string_view text) {
    std::string out;
    for (const char c : text) {
        const auto escape = texEscape(c);
        escape.empty() ? out += c : out += escape;
    }
    return out;
}

/// "and" between names is BibTeX's own word, so that a whole name wears braces.
std::string bibtexName(const CitedName& name) {
    if (name.isWhole()) return '{' + escapedTeX(name.asSpoken()) + '}';
    auto text = escapedTeX(name.family) + ", ";
    if (!name.suffix.empty()) text += escapedTeX(name.suffix) + ", ";
    return text + escapedTeX(name.given);
}

std::string risName(const CitedName& name) {
    auto text = name.family;
    if (!name.given.empty()) text += ", " + name.given;
    if (!name.suffix.empty()) text += ", " + name.suffix;
    return text;
}

std::string dashedDay(std::chrono::year_month_day day, char dash) {
    return fmt::format("{:04}{}{:02}{}{:02}", static_cast<int>(day.year()), dash,
                       static_cast<unsigned>(day.month()), dash, static_cast<unsigned>(day.day()));
}

}  // namespace

std::string citationKey(const CitedParts& parts, std::set<std::string>& taken) {
    auto key = parts.names.empty() ? "" : keyWord(fold(parts.names.front().family));
    if (key.empty()) key = keyWord(fold(parts.outlet));
    if (key.empty()) key = "item";
    if (parts.published) key += std::to_string(static_cast<int>(parts.published->year()));
    key += keyWordOfTitle(parts.title);
    key += '-' + storyID(canonicalLink(parts.link)).substr(0, kHashLetters);
    auto free = key;
    for (int number = 2; !taken.insert(free).second; ++number)
        free = key + '-' + std::to_string(number);
    return free;
}

std::string bibtexEntry(const CitedParts& parts, const std::string& key) {
    static constexpr std::array<std::string_view, 12> months{
        "jan", "feb", "mar", "apr", "may", "jun", "jul", "aug", "sep", "oct", "nov", "dec"};
    std::string text = "@misc{" + key + ",\n";
    if (!parts.names.empty()) {
        std::string authors;
        for (const auto& name : parts.names) {
            if (!authors.empty()) authors += " and ";
            authors += bibtexName(name);
        }
        text += "  author = {" + authors + "},\n";
    }
    // The inner braces keep the letter case.
    text += "  title = {{" + escapedTeX(parts.title) + "}},\n";
    if (!parts.outlet.empty()) text += "  howpublished = {" + escapedTeX(parts.outlet) + "},\n";
    if (const auto day = parts.published) {
        text += fmt::format(
            "  year = {{{}}},\n  month = {},\n  day = {{{}}},\n", static_cast<int>(day->year()),
            months[static_cast<unsigned>(day->month()) - 1], static_cast<unsigned>(day->day()));
    }
    text += "  url = {" + parts.link + "},\n";
    text += "  urldate = {" + dashedDay(parts.accessed, '-') + "}\n}\n";
    return text;
}

std::string risEntry(const CitedParts& parts) {
    std::string text;
    const auto add = [&](std::string_view tag, std::string_view value) {
        text += fmt::format("{}  - {}\r\n", tag, value);
    };
    add("TY", "NEWS");
    for (const auto& name : parts.names) add("AU", risName(name));
    add("TI", parts.title);
    if (!parts.outlet.empty()) add("T2", parts.outlet);
    if (const auto day = parts.published) {
        add("PY", std::to_string(static_cast<int>(day->year())));
        add("DA", dashedDay(*day, '/'));
    }
    add("UR", parts.link);
    add("Y2", dashedDay(parts.accessed, '/'));
    add("ER", "");
    return text;
}

}  // namespace kit
