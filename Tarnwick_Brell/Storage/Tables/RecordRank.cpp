#include "Tarnwick_Brell/Storage/Tables/RecordRank.h"

#include <cstddef>

namespace app {

namespace {

constexpr std::string_view kDigits = "0123456789abcdefghijklmnopqrstuvwxyz";
constexpr std::size_t kBase = kDigits.size();

/// `none` behind the end. A character that is no digit, which only something else can have
/// written, counts as 0.
std::size_t digit(std::string_view rank, std::size_t place, std::size_t none) {
    if (place >= rank.size()) return none;
    const auto value = kDigits.find(rank[place]);
    return value == std::string_view::npos ? 0 : value;
}

/// The next rank in steps of the last digit: records that are added one behind the other get
/// ranks that grow by a digit every 35 records, which halving does every five.
std::string rankBehind(std::string_view low) {
    for (std::size_t place = 0; place < low.size(); ++place) {
        const auto value = digit(low, place, 0);
        if (value + 1 < kBase) return std::string(low.substr(0, place)) + kDigits[value + 1];
    }
    return std::string(low) + kDigits[1];
}

}  // namespace

std::string rankBetween(std::string_view low, std::string_view high) {
    if (high.empty() && !low.empty()) return rankBehind(low);
    std::string rank;
    for (std::size_t place = 0;; ++place) {
        const auto from = digit(low, place, 0);
        const auto to = digit(high, place, kBase);
        if (to > from + 1) return rank + kDigits[(from + to) / 2];
        rank += kDigits[from];
    }
}

}  // namespace app
