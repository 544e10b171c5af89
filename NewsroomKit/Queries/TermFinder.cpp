#include "NewsroomKit/Queries/TermFinder.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <set>
#include <string>
#include <tuple>
#include <utility>

#include "NewsroomKit/Queries/CasedText.h"
#include "NewsroomKit/Text/ASCII.h"

namespace kit {

namespace {

constexpr std::ptrdiff_t kWindow = 4;
constexpr std::size_t kHalf = 2;
constexpr std::size_t kPairs = 0x10000;
constexpr unsigned kSecondHalf = 8;  ///< shift of the bits for second halves
constexpr std::size_t kBlock = 8;

/// The rough frequency of a byte in news, in thousandths. Affects only speed.
double usualShare(char byte) {
    static constexpr std::string_view letters = "etaoinsrlhcdpumgfwybvkxjqz";
    static constexpr unsigned char shares[] = {98, 73, 68, 63, 62, 60, 54, 53, 37, 36, 29, 30, 27,
                                               24, 22, 18, 17, 17, 16, 15, 9,  8,  2,  2,  1,  1};
    if (byte == ' ') return 165;
    if (const auto place = letters.find(byte); place != std::string_view::npos) {
        return shares[place];
    }
    // Letters of other scripts begin with the same few bytes.
    return static_cast<std::uint8_t>(byte) >= 0xC0 ? 100 : 5;
}

/// The bytes that can occur at a position of a phrase or beside it: both letter cases, neither
/// letters nor digits beside whole words, anything elsewhere.
std::string bytesAt(const PhraseMatcher& term, std::ptrdiff_t place) {
    const auto size = std::ssize(term.phrase);
    if (place >= 0 && place < size) {
        const char byte = term.phrase[static_cast<std::size_t>(place)];
        if (byte < 'a' || byte > 'z') return {byte};
        return {byte, static_cast<char>(byte - 'a' + 'A')};
    }
    const bool isBoundary = term.isBounded() && (place == -1 || place == size);
    std::string bytes;
    for (unsigned byte = 0; byte < 256; ++byte) {
        const auto c = static_cast<char>(byte);
        if (!isBoundary || !isASCIIAlphanumeric(c)) bytes += c;
    }
    return bytes;
}

double shareAt(const PhraseMatcher& term, std::ptrdiff_t place) {
    const auto size = std::ssize(term.phrase);
    if (place >= 0 && place < size) return usualShare(term.phrase[static_cast<std::size_t>(place)]);
    return term.isBounded() && (place == -1 || place == size) ? 200 : 1000;
}

/// The start of the first of the two windows that together are rarest.
std::ptrdiff_t bestOffset(const PhraseMatcher& term) {
    const auto share = [&](std::ptrdiff_t offset) {
        double inner = 1;
        for (std::ptrdiff_t i = 1; i < kWindow; ++i) inner *= shareAt(term, offset + i);
        return inner * (shareAt(term, offset) + shareAt(term, offset + kWindow));
    };
    std::ptrdiff_t best = -1;
    for (std::ptrdiff_t offset = 0; offset + kWindow <= std::ssize(term.phrase); ++offset) {
        if (share(offset) < share(best)) best = offset;
    }
    return best;
}

std::uint16_t pairAt(const char* bytes) {
    std::uint16_t pair = 0;
    std::memcpy(&pair, bytes, sizeof pair);
    return pair;
}

/// Builds the table of halves.
class HalvesMaker {
public:
    void mark(const PhraseMatcher& term, std::ptrdiff_t offset, unsigned bits) {
        const auto firsts = bytesAt(term, offset);
        const auto seconds = bytesAt(term, offset + 1);
        // Halves wholly outside a phrase are tens of thousands of pairs, but form few different
        // sets, which their sizes identify.
        const bool isBeside = offset >= std::ssize(term.phrase);
        if (isBeside && !marked_.insert({firsts.size(), seconds.size(), bits}).second) return;
        for (const char first : firsts) {
            for (const char second : seconds) {
                const char bytes[] = {first, second};
                auto& half = halves_[pairAt(bytes)];
                half = static_cast<std::uint16_t>(half | bits);
            }
        }
    }
    std::vector<std::uint16_t> take() { return std::move(halves_); }

private:
    std::vector<std::uint16_t> halves_ = std::vector<std::uint16_t>(kPairs);
    std::set<std::tuple<std::size_t, std::size_t, unsigned>> marked_{};
};

/// The groups of the windows that begin in a block. All are looked up before any is tested, because
/// a branch for each would cost more than the look-up.
std::uint32_t groupsInBlock(const std::uint16_t* halves, const char* block) {
    std::uint32_t groups = 0;
    std::uint32_t left = halves[pairAt(block)];
    for (std::size_t i = kHalf; i <= kBlock; i += kHalf) {
        const std::uint32_t right = halves[pairAt(block + i)];
        groups |= left & right >> kSecondHalf;
        left = right;
    }
    return groups;
}

}  // namespace

TermFinder::TermFinder(std::span<const PhraseMatcher> any, std::span<const PhraseMatcher> excluded)
    : anyCount_(any.size()) {
    terms_.assign(any.begin(), any.end());
    terms_.insert(terms_.end(), excluded.begin(), excluded.end());
    HalvesMaker halves;
    for (std::size_t term = 0; term < terms_.size(); ++term) {
        spansTheSeam_ |= terms_[term].phrase.find('\n') != std::string::npos;
        const std::size_t group = term % kGroups;
        const std::ptrdiff_t best = bestOffset(terms_[term]);
        for (const auto offset : {best, best + 1}) {
            windows_[group].push_back({.term = term, .offset = offset});
            halves.mark(terms_[term], offset, 1U << group);
            halves.mark(terms_[term], offset + kWindow / 2, 1U << group << kSecondHalf);
        }
    }
    halves_ = halves.take();
}

bool TermFinder::admits(std::string_view title, std::string_view summary) const {
    bool isWanted = anyCount_ == 0;
    bool isExcluded = false;
    find(title, summary, [&](std::size_t term) {
        if (term < anyCount_) {
            isWanted = true;
            return anyCount_ < terms_.size() ? Next::goOn : Next::stop;
        }
        isExcluded = true;
        return Next::stop;
    });
    return isWanted && !isExcluded;
}

std::optional<std::size_t> TermFinder::firstAny(std::string_view title,
                                                std::string_view summary) const {
    std::size_t first = anyCount_;
    find(title, summary, [&](std::size_t term) {
        first = std::min(first, term);
        return first == 0 ? Next::stop : Next::goOn;
    });
    return first < anyCount_ ? std::optional(first) : std::nullopt;
}

template <class Visit>
void TermFinder::find(std::string_view title, std::string_view summary, Visit visit) const {
    // A phrase neither begins nor ends with a space, so without a line break it cannot span title
    // and summary.
    if (!spansTheSeam_ && isAllASCII(title) && isAllASCII(summary)) {
        if (findIn(title, visit) == Next::goOn) findIn(summary, visit);
        return;
    }
    std::string text;
    text.reserve(title.size() + summary.size() + 3);
    appendCased(title, text);
    text += " \n ";
    appendCased(summary, text);
    findIn(text, visit);
}

template <class Visit>
TermFinder::Next TermFinder::findIn(std::string_view text, Visit& visit) const {
    const std::uint16_t* const halves = halves_.data();
    const auto search = [&](const char* block, std::size_t at) {
        if (groupsInBlock(halves, block) == 0) return Next::goOn;
        for (std::size_t i = 0; i < kBlock; i += kHalf) {
            const unsigned first = halves[pairAt(block + i)];
            const unsigned groups = first & halves[pairAt(block + i + kHalf)] >> kSecondHalf;
            if (groups != 0 && findAt(text, at + i, groups, visit) == Next::stop) {
                return Next::stop;
            }
        }
        return Next::goOn;
    };
    std::size_t at = 0;
    for (; at + kBlock + kHalf <= text.size(); at += kBlock) {
        if (search(text.data() + at, at) == Next::stop) return Next::stop;
    }
    // Search the end again, padded with spaces, which bound words as the end of the text does.
    constexpr std::size_t kEnd = 2 * kBlock;
    std::array<char, 2 * kEnd> end;
    end.fill(' ');
    const std::size_t copied = std::min(text.size(), kEnd);
    char* const begin = end.data() + kEnd - copied;
    if (copied == kEnd) {
        std::memcpy(begin, text.data() + text.size() - kEnd, kEnd);
    } else if (copied > 0) {
        std::memcpy(begin, text.data(), copied);
    }
    for (; at < text.size(); at += kBlock) {
        if (search(end.data() + kEnd - (text.size() - at), at) == Next::stop) return Next::stop;
    }
    return Next::goOn;
}

template <class Visit>
TermFinder::Next TermFinder::findAt(std::string_view text, std::size_t at, unsigned groups,
                                    Visit& visit) const {
    for (; groups != 0; groups &= groups - 1) {
        for (const Window& window : windows_[static_cast<std::size_t>(std::countr_zero(groups))]) {
            if (isAt(window, text, at) && visit(window.term) == Next::stop) return Next::stop;
        }
    }
    return Next::goOn;
}

bool TermFinder::isAt(const Window& window, std::string_view text, std::size_t at) const {
    const PhraseMatcher& term = terms_[window.term];
    const auto start = static_cast<std::ptrdiff_t>(at) - window.offset;
    if (start < 0) return false;
    const auto begin = static_cast<std::size_t>(start);
    return begin <= text.size() && standsAt(text, begin, term.phrase) &&
           (!term.isBounded() || standsAsWords(text, begin, begin + term.phrase.size()));
}

}  // namespace kit
