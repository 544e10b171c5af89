#include "NewsroomKit/Panels/ProposedTerms.h"

#include <algorithm>
#include <array>
#include <functional>
#include <map>

#include "NewsroomKit/Clusters/ClusterVocabulary.h"
#include "NewsroomKit/Editorial/PhraseMatcher.h"
#include "NewsroomKit/Editorial/PhraseTables.h"
#include "NewsroomKit/Text/Folding.h"
#include "NewsroomKit/Text/Unicode.h"
#include "NewsroomKit/Text/Utf8.h"

namespace kit {

namespace {

constexpr std::size_t kLongestTitle = 600;
/// Nearly every story of the wire mentions the company.
constexpr std::string_view kCompany = "apple";

constexpr std::size_t kMostWords = 4;  ///< in one term

/// Fewer headlines are a coincidence.
constexpr std::size_t kLeastHeadlines = 3;
constexpr std::size_t kMostHeadlines = 4000;
constexpr std::size_t kMostAdditions = 6;

/// Words that belong to the product name before them.
constexpr std::array<std::string_view, 8> kModelWords{"air", "max",    "mini",   "plus",
                                                      "pro", "series", "studio", "ultra"};

struct Word {
    std::string_view text;  ///< without punctuation at its ends
    std::string folded;
    bool endsName = false;  ///< punctuation follows
    bool isCapital = false;
    bool isNumber = false;  ///< digits and full stops only
    bool isName = false;    ///< whatever the capitals of its headline
};

bool isUpper(char c) { return c >= 'A' && c <= 'Z'; }
bool isLower(char c) { return c >= 'a' && c <= 'z'; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool isFunctionWord(std::string_view folded) {
    const auto* known = ClusterVocabulary::shared().find(folded);
    return known && known->role == WordRole::function;
}

/// Everyday in Apple news: says little of what a headline names.
bool isEverydayWord(std::string_view folded) {
    const auto* known = ClusterVocabulary::shared().find(folded);
    return known && (known->role == WordRole::common || known->role == WordRole::sense ||
                     known->role == WordRole::stage || known->role == WordRole::model ||
                     known->name == "apple");
}

bool isWordCharacter(char32_t c) { return isLetter(c) || isNumber(c) || c == U'$' || c == U'&'; }

/// Of the Latin, Greek and Cyrillic alphabets.
bool beginsWithCapital(std::string_view text) {
    const auto first = decodeUTF8(text, 0).value;
    return (first >= U'A' && first <= U'Z') || (first >= 0xC0 && first <= 0xDE) ||
           (first >= 0x391 && first <= 0x3A9) || (first >= 0x410 && first <= 0x42F);
}

/// "A20", "iPhone", "visionOS", "TSMC".
bool looksLikeName(std::string_view text) {
    bool hasLetter = false;
    bool hasDigit = false;
    bool hasInnerCapital = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        hasLetter |= isUpper(text[i]) || isLower(text[i]);
        hasDigit |= isDigit(text[i]);
        hasInnerCapital |= i > 0 && isUpper(text[i]) && text[i - 1] != '-';
    }
    return hasLetter && (hasInnerCapital || (hasDigit && !isDigit(text.front())));
}

std::string_view withoutPossessive(std::string_view text) {
    for (const std::string_view ending : {"'s", "’s"}) {
        if (text.ends_with(ending)) return text.substr(0, text.size() - ending.size());
    }
    return text;
}

Word wordOf(std::string_view piece) {
    std::size_t begin = piece.size();
    std::size_t end = 0;
    for (std::size_t at = 0; at < piece.size();) {
        const auto decoded = decodeUTF8(piece, at);
        if (isWordCharacter(decoded.value)) {
            begin = std::min(begin, at);
            end = at + decoded.length;
        }
        at += decoded.length;
    }
    if (begin >= end) return {.text = {}, .folded = {}, .endsName = true};
    const auto text = withoutPossessive(piece.substr(begin, end - begin));
    Word word{.text = text, .folded = fold(text), .endsName = begin + text.size() < piece.size()};
    word.isCapital = beginsWithCapital(text);
    word.isNumber = std::ranges::all_of(text, [](char c) { return isDigit(c) || c == '.'; });
    const auto* known = ClusterVocabulary::shared().find(word.folded);
    word.isName = looksLikeName(text) ||
                  (known && (known->role == WordRole::system || known->role == WordRole::device));
    return word;
}

std::vector<Word> wordsOf(std::string_view title) {
    std::vector<Word> words;
    for (std::size_t at = 0; at < title.size();) {
        std::size_t end = at;
        while (end < title.size() && !isWhitespaceOrNewline(decodeUTF8(title, end).value))
            end += decodeUTF8(title, end).length;
        if (end > at) words.push_back(wordOf(title.substr(at, end - at)));
        at = end < title.size() ? end + decodeUTF8(title, end).length : end;
    }
    return words;
}

/// Capitals tell a name apart only where most words have none.
bool capitalsTellNames(const std::vector<Word>& words) {
    std::size_t plain = 0;
    std::size_t capital = 0;
    for (std::size_t i = 1; i < words.size(); ++i) {
        const auto& word = words[i];
        if (word.isName || word.isNumber || word.text.empty() || isFunctionWord(word.folded) ||
            word.folded == kCompany) {
            continue;
        }
        ++(word.isCapital ? capital : plain);
    }
    return capital <= plain;
}

/// How many words from `at` on form a known product's name, such as "Vision Pro".
std::size_t knownProduct(const std::vector<Word>& words, std::size_t at) {
    if (at + 1 >= words.size() || words[at].endsName) return 0;
    const auto name = words[at].folded + " " + words[at + 1].folded;
    const auto known = phrases(PhraseTable::appleTopic);
    return std::ranges::find(known, name) == known.end() ? 0 : 2;
}

class TermProposer {
public:
    explicit TermProposer(std::string_view title)
        : words_(wordsOf(title)), tellNames_(capitalsTellNames(words_)) {}

    std::vector<std::string> terms() {
        for (std::size_t at = 0; at < words_.size() && terms_.size() < kMostProposedTerms;) {
            const auto end = endOfName(at);
            if (end > at) add(at, end);
            at = std::max(end, at + 1);
        }
        return std::move(terms_);
    }

private:
    bool beginsName(std::size_t at) const {
        const auto& word = words_[at];
        if (word.isName) return true;
        if (!tellNames_ || !word.isCapital || isFunctionWord(word.folded)) return false;
        // The first word has a capital in any case.
        return at > 0 || !isEverydayWord(word.folded) || isFollowedByCapital(at);
    }

    bool isFollowedByCapital(std::size_t at) const {
        return at + 1 < words_.size() && !words_[at].endsName && words_[at + 1].isCapital &&
               !isFunctionWord(words_[at + 1].folded);
    }

    bool continuesName(std::size_t at) const {
        const auto& word = words_[at];
        if (word.isNumber || std::ranges::find(kModelWords, word.folded) != kModelWords.end())
            return true;
        return tellNames_ && word.isCapital && !isFunctionWord(word.folded);
    }

    /// `at` when no name begins there.
    std::size_t endOfName(std::size_t at) const {
        if (const auto length = knownProduct(words_, at)) return at + length;
        if (!beginsName(at)) return at;
        std::size_t end = at + 1;
        while (end < words_.size() && end - at < kMostWords && !words_[end - 1].endsName &&
               continuesName(end) && knownProduct(words_, end) == 0)
            ++end;
        return end;
    }

    void add(std::size_t begin, std::size_t end) {
        if (end - begin == 1 && words_[begin].folded == kCompany) return;
        std::string term;
        std::string key;
        for (std::size_t i = begin; i < end; ++i) {
            if (i > begin) term += ' ';
            term += words_[i].text;
        }
        key = fold(term);
        if (std::ranges::find(keys_, key) != keys_.end()) return;
        keys_.push_back(std::move(key));
        terms_.push_back(std::move(term));
    }

    std::vector<Word> words_;
    bool tellNames_;
    std::vector<std::string> terms_;
    std::vector<std::string> keys_;
};

}  // namespace

std::vector<std::string> proposedTerms(std::string_view title) {
    const auto text = validUTF8(firstCharacters(title, kLongestTitle));
    return TermProposer(text).terms();
}

std::vector<ProposedTerm> proposedTerms(std::span<const PanelStory> stories,
                                        const StoryQuery& query) {
    std::map<std::string, ProposedTerm> found;  // by folded term, spelt as in the newest headline
    for (const auto& story : stories.first(std::min(stories.size(), kMostHeadlines))) {
        for (auto& term : proposedTerms(story.story->title)) {
            auto& entry = found[fold(term)];
            if (entry.stories++ == 0) entry.term = std::move(term);
        }
    }
    std::vector<PhraseMatcher> known;
    for (const auto& term : query.anyTerms) known.emplace_back(term);
    for (const auto& term : query.excludedTerms) known.emplace_back(term);
    std::vector<ProposedTerm> terms;
    for (auto& [key, entry] : found) {
        const auto text = PhraseMatcher::normalize(entry.term);
        if (entry.stories >= kLeastHeadlines &&
            std::ranges::none_of(known, [&](const auto& each) { return each.matches(text); }))
            terms.push_back(std::move(entry));
    }
    std::ranges::stable_sort(terms, std::greater{}, &ProposedTerm::stories);
    if (terms.size() > kMostAdditions) terms.resize(kMostAdditions);
    return terms;
}

}  // namespace kit
