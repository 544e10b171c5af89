#include "NewsroomKit/Library/CitedNames.h"

#include <algorithm>
#include <array>

#include "NewsroomKit/Library/LineText.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

constexpr std::size_t kMostWordsOfPerson = 5;

constexpr std::array<std::string_view, 31> kWordsOfOrganisations{
    "news",   "newsroom", "staff",  "desk",       "team",        "press",      "agency",
    "editor", "editors",  "inc",    "inc.",       "llc",         "ltd",        "ltd.",
    "gmbh",   "media",    "times",  "magazine",   "bureau",      "wire",       "reporters",
    "group",  "company",  "office", "department", "corporation", "university", "institute",
    "daily",  "board",    "service"};

constexpr std::array<std::string_view, 20> kParticles{
    "van", "von", "de",  "der", "den", "da",  "di",  "du", "la",  "le",
    "del", "dos", "bin", "ibn", "al",  "ter", "ten", "zu", "zum", "della"};

constexpr std::array<std::string_view, 8> kSuffixes{"jr", "jr.", "sr", "sr.",
                                                    "ii", "iii", "iv", "phd"};

bool isOneOf(std::string_view word, std::span<const std::string_view> words) {
    return std::ranges::any_of(words, [&](auto known) { return equalsLowercase(word, known); });
}

std::vector<std::string_view> wordsOf(std::string_view text) {
    std::vector<std::string_view> words;
    while (!text.empty()) {
        const auto end = std::min(text.find(' '), text.size());
        if (end > 0) words.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return words;
}

std::string joined(std::span<const std::string_view> words) {
    std::string text;
    for (const auto word : words) {
        if (!text.empty()) text += ' ';
        text += word;
    }
    return text;
}

bool isOrganisation(std::span<const std::string_view> words) {
    if (words.size() < 2 || words.size() > kMostWordsOfPerson) return true;
    if (equalsLowercase(words.front(), "the")) return true;
    return std::ranges::any_of(words, [](std::string_view word) {
        return isOneOf(word, kWordsOfOrganisations) ||
               word.find_first_of("0123456789@/") != std::string_view::npos;
    });
}

CitedName nameOf(std::string_view text) {
    auto words = wordsOf(text);
    CitedName name;
    if (words.size() > 2 && isOneOf(words.back(), kSuffixes)) {
        name.suffix = words.back();
        words.pop_back();
    }
    if (isOrganisation(words)) return {.family = std::string(text)};
    std::size_t family = words.size() - 1;
    for (std::size_t i = 1; i + 1 < words.size(); ++i) {
        // "Van" with a capital may be a given name.
        if (words[i].front() >= 'a' && isOneOf(words[i], kParticles)) {
            family = i;
            break;
        }
    }
    name.family = joined(std::span(words).subspan(family));
    name.given = joined(std::span(words).first(family));
    return name;
}

/// Parts between any of the separators, trimmed, none empty.
std::vector<std::string_view> splitByline(std::string_view text,
                                          std::span<const std::string_view> separators) {
    std::vector<std::string_view> parts;
    for (std::size_t begin = 0, at = 0; begin <= text.size(); ++at) {
        std::size_t taken = at >= text.size() ? 1 : 0;
        for (const auto separator : separators) {
            if (taken == 0 && standsAt(text, at, separator)) taken = separator.size();
        }
        if (taken == 0) continue;
        const auto part = trimWhitespaceAndNewlines(text.substr(begin, at - begin));
        if (!part.empty()) parts.push_back(part);
        begin = at + taken;
        at = begin - 1;
    }
    return parts;
}

/// "Doe, Jane" is one person, "Jane Doe, John Roe" are two.
bool isTurned(std::span<const std::string_view> parts) {
    return parts.size() == 2 && wordsOf(parts[0]).size() == 1 && wordsOf(parts[1]).size() <= 2 &&
           !isOneOf(parts[1], kSuffixes) && !isOrganisation(std::array{parts[1], parts[0]});
}

void appendNames(std::string_view text, std::vector<CitedName>& names) {
    static constexpr std::array<std::string_view, 1> comma{","};
    const auto parts = splitByline(text, comma);
    if (isTurned(parts)) {
        names.push_back({.family = std::string(parts[0]), .given = std::string(parts[1])});
        return;
    }
    for (const auto part : parts) {
        if (!names.empty() && isOneOf(part, kSuffixes)) {
            names.back().suffix = part;
        } else {
            names.push_back(nameOf(part));
        }
    }
}

}  // namespace

std::string CitedName::asSpoken() const {
    auto text = given.empty() ? family : given + ' ' + family;
    if (!suffix.empty()) text += ' ' + suffix;
    return text;
}

std::vector<CitedName> citedNames(std::string_view byline, std::span<const std::string> outlets) {
    static constexpr std::array<std::string_view, 3> between{" and ", " & ", ";"};
    const auto line = singleLine(byline);
    std::string_view text = line;
    if (standsAt(text, 0, "by ")) text = trimWhitespaceAndNewlines(text.substr(3));
    if (text.empty()) return {};
    const bool isOutlet = std::ranges::any_of(
        outlets, [&](const std::string& outlet) { return equalIgnoringCase(text, outlet); });
    if (isOutlet) return {{.family = std::string(text)}};
    const auto parts = splitByline(text, between);
    // "Arts and Culture Desk" is one.
    const bool isOne = parts.size() == 2 && wordsOf(parts[0]).size() == 1 &&
                       text.find(';') == std::string_view::npos;
    if (isOne) return {{.family = std::string(text)}};
    std::vector<CitedName> names;
    for (const auto part : parts) appendNames(part, names);
    return names;
}

}  // namespace kit
