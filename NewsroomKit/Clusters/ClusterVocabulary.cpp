#include "NewsroomKit/Clusters/ClusterVocabulary.h"

#include <algorithm>
#include <array>
#include <functional>
#include <optional>
#include <stdexcept>
#include <utility>

#include "NewsroomKit/Clusters/VocabularyText.h"
#include "NewsroomKit/Text/ASCII.h"

namespace kit {

namespace {

constexpr std::array<std::pair<std::string_view, WordRole>, 14> kRoleNames{{
    {"function", WordRole::function},
    {"common", WordRole::common},
    {"sense", WordRole::sense},
    {"event", WordRole::event},
    {"company", WordRole::company},
    {"system", WordRole::system},
    {"device", WordRole::device},
    {"model", WordRole::model},
    {"stage", WordRole::stage},
    {"audience", WordRole::audience},
    {"service", WordRole::service},
    {"place", WordRole::place},
    {"person", WordRole::person},
    {"reporter", WordRole::reporter},
}};

constexpr std::size_t kMostWordsOfAlias = 4;

std::optional<WordRole> roleNamed(std::string_view name) {
    for (const auto& [known, role] : kRoleNames) {
        if (known == name) return role;
    }
    return std::nullopt;
}

std::string_view trimmedSpaces(std::string_view text) {
    while (text.starts_with(' ')) text.remove_prefix(1);
    while (text.ends_with(' ')) text.remove_suffix(1);
    return text;
}

template <class Use>
void forEachPart(std::string_view text, char separator, Use use) {
    while (!text.empty()) {
        const auto end = std::min(text.find(separator), text.size());
        if (const auto part = trimmedSpaces(text.substr(0, end)); !part.empty()) use(part);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

/// Rows of these roles list words that have nothing in common but their role.
bool standsForItself(WordRole role) {
    return role == WordRole::function || role == WordRole::common;
}

bool isKnownLetter(char c) {
    return (c >= 'a' && c <= 'z') || isASCIIDigit(c) || c == ' ' || c == '+';
}

}  // namespace

const ClusterVocabulary& ClusterVocabulary::shared() {
    static const ClusterVocabulary vocabulary(kVocabularyText);
    return vocabulary;
}

ClusterVocabulary::ClusterVocabulary(std::string_view text) {
    Section section;
    forEachPart(text, '\n', [&](std::string_view line) {
        if (line.starts_with('#')) return;
        try {
            if (line.starts_with('[')) {
                section = sectionOf(line);
            } else {
                addRow(line, section);
            }
        } catch (const std::invalid_argument& problem) {
            throw std::invalid_argument(std::string(problem.what()) + ": " + std::string(line));
        }
    });
    for (auto& [first, aliases] : aliases_) {
        std::stable_sort(aliases.begin(), aliases.end(), [](const Alias& a, const Alias& b) {
            if (a.rest.size() != b.rest.size()) return a.rest.size() > b.rest.size();
            return a.needsContext() && !b.needsContext();
        });
    }
}

ClusterVocabulary::Section ClusterVocabulary::sectionOf(std::string_view line) {
    const auto space = line.find(' ');
    if (space == std::string_view::npos || !line.ends_with(']')) {
        throw std::invalid_argument("a role and a share are expected");
    }
    const auto role = roleNamed(line.substr(1, space - 1));
    const double share = std::stod(std::string(line.substr(space + 1)));
    if (!role || !(share > 0 && share <= 1)) {
        throw std::invalid_argument("a known role and a share up to 1 are expected");
    }
    return {*role, share};
}

void ClusterVocabulary::addRow(std::string_view line, const Section& section) {
    const auto equals = line.find('=');
    const auto name = trimmedSpaces(line.substr(0, equals));
    const auto list = equals == std::string_view::npos ? "" : line.substr(equals + 1);
    if (standsForItself(section.role)) {
        forEachPart(list, ';', [&](auto text) { addAlias(text, addWord(text, section)); });
        return;
    }
    const auto word = addWord(name, section);
    addAlias(name, word);
    forEachPart(list, ';', [&](std::string_view text) { addAlias(text, word); });
}

std::uint32_t ClusterVocabulary::addWord(std::string_view name, const Section& section) {
    // The names of senses and entities are keys of their own, so that a word outside its context
    // never equals them.
    const auto key =
        standsForItself(section.role) ? wordKey(name) : textKey("=" + std::string(name));
    words_.push_back(
        {.name = std::string(name), .key = key, .role = section.role, .share = section.share});
    return static_cast<std::uint32_t>(words_.size() - 1);
}

void ClusterVocabulary::addAlias(std::string_view text, std::uint32_t word) {
    const auto question = text.find('?');
    Alias alias{.word = word};
    std::vector<std::uint64_t> keys;
    const auto phrase = text.substr(0, question);
    if (!std::all_of(phrase.begin(), phrase.end(), isKnownLetter)) {
        throw std::invalid_argument("only a to z, digits, spaces and + are expected");
    }
    forEachPart(phrase, ' ', [&](std::string_view part) { keys.push_back(wordKey(part)); });
    if (keys.empty() || keys.size() > kMostWordsOfAlias) {
        throw std::invalid_argument("an alias of one to four words is expected");
    }
    alias.rest.assign(keys.begin() + 1, keys.end());
    if (question != std::string_view::npos) {
        forEachPart(text.substr(question + 1), ' ', [&](std::string_view part) {
            if (!part.starts_with('@')) return alias.besides.push_back(wordKey(part));
            const auto role = roleNamed(part.substr(1));
            if (!role) throw std::invalid_argument("a known role is expected");
            alias.besidesRoles.push_back(*role);
        });
        if (!alias.needsContext()) throw std::invalid_argument("a context is expected");
    }
    auto& own = aliases_[keys.front()];
    const bool isTaken = std::any_of(own.begin(), own.end(), [&](const Alias& other) {
        return other.rest == alias.rest && !other.needsContext() && !alias.needsContext();
    });
    if (isTaken) throw std::invalid_argument("\"" + std::string(text) + "\" is there twice");
    own.push_back(std::move(alias));
}

std::span<const ClusterVocabulary::Alias> ClusterVocabulary::beginningWith(
    std::uint64_t key) const {
    const auto found = aliases_.find(key);
    if (found == aliases_.end()) return {};
    return found->second;
}

const KnownWord* ClusterVocabulary::find(std::string_view folded) const {
    const auto aliases = beginningWith(wordKey(folded));
    const auto own = std::find_if(aliases.begin(), aliases.end(), [](const Alias& alias) {
        return alias.rest.empty() && !alias.needsContext();
    });
    return own == aliases.end() ? nullptr : &words_[own->word];
}

std::string wordStem(std::string_view word) {
    constexpr std::size_t kShortest = 3;  // the least length of a stem
    if (!std::all_of(word.begin(), word.end(), isASCIILetter)) return std::string(word);
    const auto drop = [&](std::string_view ending) {
        const bool ends = word.size() >= ending.size() + kShortest && word.ends_with(ending);
        if (ends) word.remove_suffix(ending.size());
        return ends;
    };
    // "ss" and "us" end singulars.
    if (!word.ends_with("ss") && !word.ends_with("us")) drop("s");
    if (!drop("ing")) drop("ed");
    drop("e");
    if (word.size() > kShortest && word.back() == word[word.size() - 2]) word.remove_suffix(1);
    std::string stem(word);
    // "companies" and "company"
    if (stem.size() > kShortest && stem.back() == 'y') stem.back() = 'i';
    return stem;
}

std::uint64_t textKey(std::string_view text) { return std::hash<std::string_view>{}(text); }

std::uint64_t wordKey(std::string_view folded) { return textKey(wordStem(folded)); }

}  // namespace kit
