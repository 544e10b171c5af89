#include "BrellSharedSync/Rank.h"

#include <algorithm>

namespace shared {
namespace {

constexpr std::string_view kDigits = "0123456789abcdefghijklmnopqrstuvwxyz";

/// The digit at a place of a fraction; zero behind its end and for what is no digit.
std::size_t digitAt(std::string_view rank, std::size_t place) {
    const auto digit = place < rank.size() ? kDigits.find(rank[place]) : 0;
    return digit == std::string_view::npos ? 0 : digit;
}

}  // namespace

std::string rankBetween(std::string_view before, std::string_view after) {
    bool isOpen = after <= before;
    std::string rank;
    // Ranks of another make could let no room between them: past both, the end is open.
    for (std::size_t place = 0;; ++place) {
        isOpen = isOpen || place > std::max(before.size(), after.size());
        const auto low = digitAt(before, place);
        const auto high = isOpen ? kDigits.size() : digitAt(after, place);
        const auto middle = (low + std::max(low, high)) / 2;
        rank += kDigits[middle];
        if (middle > low) return rank;
        isOpen = isOpen || high > low;
    }
}

}  // namespace shared
