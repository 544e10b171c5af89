#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kit {

/// What a known word does in a headline.
enum class WordRole : std::uint8_t {
    function,
    common,
    sense,
    event,  ///< a sense: something that happens to somebody
    company,
    system,
    device,
    model,
    stage,
    audience,
    service,
    place,
    person,
    reporter
};

/// A word, or several that mean the same, with the usual share of headlines that hold it.
struct KnownWord {
    std::string name{};
    std::uint64_t key = 0;
    WordRole role = WordRole::common;
    double share = 0;
};

/// The words that clustering knows beforehand, read from vocabulary.txt, whose head describes the
/// format.
class ClusterVocabulary {
public:
    /// One way to write a known word.
    struct Alias {
        std::uint32_t word = 0;                ///< place in words()
        std::vector<std::uint64_t> rest{};     ///< of several words those after the first
        std::vector<std::uint64_t> besides{};  ///< counts only beside one of these
        std::vector<WordRole> besidesRoles{};  ///< or of these
        bool needsContext() const { return !besides.empty() || !besidesRoles.empty(); }
    };

    /// The built-in table.
    static const ClusterVocabulary& shared();

    /// Throws std::invalid_argument naming the line that does not read.
    explicit ClusterVocabulary(std::string_view text);

    std::span<const KnownWord> words() const { return words_; }
    /// The aliases whose first word has this key; those of more words come first.
    std::span<const Alias> beginningWith(std::uint64_t key) const;

    /// What one word by itself stands for; null for words that are not known or need a context.
    const KnownWord* find(std::string_view folded) const;

private:
    struct Section {
        WordRole role = WordRole::common;
        double share = 0;
    };
    static Section sectionOf(std::string_view line);
    void addRow(std::string_view line, const Section& section);
    std::uint32_t addWord(std::string_view name, const Section& section);
    void addAlias(std::string_view text, std::uint32_t word);

    std::vector<KnownWord> words_;
    std::unordered_map<std::uint64_t, std::vector<Alias>> aliases_;  ///< by their first word
};

/// The word without its regular endings ("releases", "released" and "releasing" are
/// "releas"): a key for comparing, not a word to show. Only words of ASCII letters change.
std::string wordStem(std::string_view folded);

/// The key of a word: that of its stem.
std::uint64_t wordKey(std::string_view folded);
std::uint64_t textKey(std::string_view text);

}  // namespace kit
