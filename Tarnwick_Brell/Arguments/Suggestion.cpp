#include "Tarnwick_Brell/Arguments/Suggestion.h"

#include <algorithm>

namespace arguments {

namespace {

constexpr std::size_t kShortestBeginning = 3;

std::string lowercased(std::string_view text) {
    std::string out(text);
    for (auto& c : out) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return out;
}

/// The number of letters added, left out, replaced or swapped with their neighbours.
std::size_t typingErrors(const std::string& a, const std::string& b) {
    // The rows of the table for the last two letters of `a` and for this one.
    std::vector<std::size_t> before(b.size() + 1), last(b.size() + 1), row(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        before = last;
        last = row;
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t differs = a[i - 1] == b[j - 1] ? 0 : 1;
            row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + differs});
            const bool exchanged = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
            if (exchanged) row[j] = std::min(row[j], before[j - 2] + 1);
        }
    }
    return row.back();
}

}  // namespace

std::optional<std::string> suggestion(std::string_view word,
                                      const std::vector<std::string>& known) {
    const auto meant = lowercased(word);
    std::optional<std::string> best;
    // A third of the letters may be wrong.
    std::size_t fewest = std::max<std::size_t>(meant.size() / 3, 1) + 1;
    for (const auto& candidate : known) {
        const auto other = lowercased(candidate);
        const bool isBeginning = meant.size() >= kShortestBeginning && other.starts_with(meant);
        const auto errors = isBeginning ? std::size_t{1} : typingErrors(meant, other);
        if (errors >= fewest || errors >= other.size()) continue;
        fewest = errors;
        best = candidate;
    }
    return best;
}

std::string didYouMean(std::string_view word, const std::vector<std::string>& known) {
    const auto found = suggestion(word, known);
    return found ? " Did you mean " + *found + "?" : "";
}

}  // namespace arguments
