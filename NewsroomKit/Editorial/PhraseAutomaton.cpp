#include "NewsroomKit/Editorial/PhraseAutomaton.h"

#include <algorithm>
#include <numeric>
#include <string>

#include "NewsroomKit/Editorial/PhraseMatcher.h"

namespace kit {

namespace {

using Ending = PhraseAutomaton::Ending;

struct Phrase {
    std::string text;
    Ending ending;
};

std::vector<Phrase> allPhrases() {
    std::vector<Phrase> all;
    for (std::size_t index = 0; index < phraseTableCount; ++index) {
        const auto table = static_cast<PhraseTable>(index);
        const auto entries = phrases(table);
        for (std::size_t entry = 0; entry < entries.size(); ++entry) {
            const PhraseMatcher matcher(entries[entry]);
            all.push_back(
                {.text = matcher.phrase,
                 .ending = {.table = table,
                            .bounded = matcher.isBounded() && !isPlainTable(table),
                            .phraseIndex = static_cast<std::uint16_t>(entry),
                            .length = static_cast<std::uint16_t>(matcher.phrase.size())}});
        }
    }
    return all;
}

/// The trie of all phrases and, once linked, its complete transition function. State 0 is the
/// start; in the trie, a transition to it means "none".
struct Trie {
    explicit Trie(std::size_t width) : classCount(width) { addState(); }

    std::size_t addState() {
        next.insert(next.end(), classCount, 0);
        endings.emplace_back();
        return endings.size() - 1;
    }

    std::uint32_t& target(std::size_t state, std::size_t byteClass) {
        return next[state * classCount + byteClass];
    }

    void add(const Phrase& phrase, std::span<const std::uint8_t> classes) {
        std::size_t state = 0;
        for (const char byte : phrase.text) {
            const std::size_t byteClass = classes[static_cast<std::uint8_t>(byte)];
            if (target(state, byteClass) == 0) {
                const std::size_t added = addState();
                target(state, byteClass) = static_cast<std::uint32_t>(added);
            }
            state = target(state, byteClass);
        }
        endings[state].push_back(phrase.ending);
    }

    /// Breadth first: a state's fallback (the longest proper suffix that is also in the
    /// trie) is shallower than the state and therefore complete when it is needed.
    void link() {
        std::vector<std::uint32_t> fallback(endings.size(), 0);
        std::vector<std::uint32_t> queue;
        for (std::size_t byteClass = 0; byteClass < classCount; ++byteClass) {
            if (target(0, byteClass) != 0) queue.push_back(target(0, byteClass));
        }
        for (std::size_t head = 0; head < queue.size(); ++head) {
            const std::uint32_t state = queue[head];
            const auto& inherited = endings[fallback[state]];
            endings[state].insert(endings[state].end(), inherited.begin(), inherited.end());
            for (std::size_t byteClass = 0; byteClass < classCount; ++byteClass) {
                std::uint32_t& child = target(state, byteClass);
                const std::uint32_t viaFallback = target(fallback[state], byteClass);
                if (child == 0) {
                    child = viaFallback;
                } else {
                    fallback[child] = viaFallback;
                    queue.push_back(child);
                }
            }
        }
    }

    std::size_t classCount;
    std::vector<std::uint32_t> next;
    std::vector<std::vector<Ending>> endings;
};

}  // namespace

PhraseAutomaton::PhraseAutomaton() {
    const std::vector<Phrase> all = allPhrases();
    for (const Phrase& phrase : all) {
        for (const char byte : phrase.text) {
            std::uint8_t& byteClass = classes_[static_cast<std::uint8_t>(byte)];
            if (byteClass == 0) byteClass = static_cast<std::uint8_t>(classCount_++);
        }
    }

    Trie trie(classCount_);
    for (const Phrase& phrase : all) trie.add(phrase, classes_);
    trie.link();

    // The start state stays first; it has no endings because no phrase is empty.
    std::vector<std::size_t> order(trie.endings.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    // Not the ranges form: clang 14, which builds the fuzz targets, cannot read it.
    const auto firstEnding = std::stable_partition(
        order.begin(), order.end(), [&](std::size_t state) { return trie.endings[state].empty(); });
    const auto rowAt = [&](std::size_t place) {
        return static_cast<std::uint32_t>(place * classCount_);
    };
    firstEndingRow_ = rowAt(static_cast<std::size_t>(firstEnding - order.begin()));
    std::vector<std::uint32_t> rowOf(order.size());
    for (std::size_t place = 0; place < order.size(); ++place) rowOf[order[place]] = rowAt(place);

    for (const std::size_t state : order) {
        for (std::size_t byteClass = 0; byteClass < classCount_; ++byteClass) {
            transitions_.push_back(rowOf[trie.target(state, byteClass)]);
        }
    }
    for (auto state = firstEnding; state != order.end(); ++state) {
        const std::vector<Ending>& ended = trie.endings[*state];
        firstEnding_.push_back(static_cast<std::uint32_t>(endings_.size()));
        endings_.insert(endings_.end(), ended.begin(), ended.end());
    }
    firstEnding_.push_back(static_cast<std::uint32_t>(endings_.size()));
}

const PhraseAutomaton& phraseAutomaton() {
    static const PhraseAutomaton automaton;
    return automaton;
}

PhraseHits findPhrases(std::string_view normalizedText) {
    PhraseHits hits;
    phraseAutomaton().scan(normalizedText, [&](const Ending& ending, std::size_t end) {
        if (!ending.bounded || standsAsWords(normalizedText, end - ending.length, end)) {
            hits.record(ending.table, ending.phraseIndex);
        }
    });
    return hits;
}

}  // namespace kit
