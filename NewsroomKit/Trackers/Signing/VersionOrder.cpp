#include "NewsroomKit/Trackers/Signing/VersionOrder.h"

#include <algorithm>

#include "NewsroomKit/Text/ASCII.h"

namespace kit {

namespace {

/// The digits at the front without leading zeros; they may be more than any number type holds.
std::string_view takeDigits(std::string_view& text) {
    const auto end = std::ranges::find_if_not(text, isASCIIDigit) - text.begin();
    auto digits = text.substr(0, static_cast<std::size_t>(end));
    text.remove_prefix(digits.size());
    digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
    return digits;
}

}  // namespace

std::weak_ordering compareVersions(std::string_view left, std::string_view right) {
    while (!left.empty() && !right.empty()) {
        if (isASCIIDigit(left.front()) && isASCIIDigit(right.front())) {
            const auto one = takeDigits(left), other = takeDigits(right);
            if (one.size() != other.size()) return one.size() <=> other.size();
            if (one != other) return one <=> other;
            continue;
        }
        const auto one = static_cast<unsigned char>(left.front());
        const auto other = static_cast<unsigned char>(right.front());
        if (one != other) return one <=> other;
        left.remove_prefix(1);
        right.remove_prefix(1);
    }
    return left.size() <=> right.size();
}

}  // namespace kit
